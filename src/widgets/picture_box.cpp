#include "widgets/picture_box.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QtMath>

#include "system/runtime_error.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kBorder = 2;
constexpr int kEmptyTextPixels = 14;
constexpr int kEmptyTextMargin = 40;

QImage decodeWhole(const std::string& bitmap) {
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bitmap.data()),
                                    static_cast<int>(bitmap.size()), "BMP");
    if (image.isNull()) {
        throw RuntimeError(error::kInvalidPicture);
    }
    return image;
}

QRect fittedInto(const QRect& area, QSize size) {
    if (size.width() > area.width() || size.height() > area.height()) {
        size.scale(area.size(), Qt::KeepAspectRatio);
    }
    return {area.x() + (area.width() - size.width()) / 2,
            area.y() + (area.height() - size.height()) / 2, size.width(), size.height()};
}

// Its sides are filled, not drawn with a pen: at no scale does one lack a row of pixels then.
void drawOutline(QPainter& painter, const QRect& box, const QColor& colour) {
    painter.fillRect(QRect(box.topLeft(), QSize(box.width(), 1)), colour);
    painter.fillRect(QRect(box.bottomLeft(), QSize(box.width(), 1)), colour);
    painter.fillRect(QRect(box.topLeft(), QSize(1, box.height())), colour);
    painter.fillRect(QRect(box.topRight(), QSize(1, box.height())), colour);
}

}  // namespace

QImage decodePicture(const Path& path, std::int64_t length) {
    return decodeWhole(readBitmap(path, length));
}

QImage decodePicture(const std::string& bytes) {
    return decodeWhole(bitmapIn(bytes));
}

PictureBox::PictureBox(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(kBorder);
    setMouseTracking(true);
}

void PictureBox::load(const Path& path, std::int64_t length) {
    setPicture(path.empty() ? QImage() : decodePicture(path, length));
}

void PictureBox::setPicture(const QImage& picture) {
    picture_ = picture;
    canvas_ = QPixmap();
    update();
}

QPixmap& PictureBox::canvas() {
    picture_ = QImage();
    if (canvas_.isNull()) {
        const qreal scale = devicePixelRatio();
        const QSizeF size = QSizeF(contentsRect().size()) * scale;
        canvas_ = QPixmap(qCeil(size.width()), qCeil(size.height()));
        canvas_.setDevicePixelRatio(scale);
        canvas_.fill(Qt::transparent);
    }
    return canvas_;
}

void PictureBox::clear() {
    picture_ = QImage();
    canvas_ = QPixmap();
    outlines_.clear();
    pressed_.reset();
    update();
}

void PictureBox::paint(const QImage& image, QPoint position) {
    paintScaled(image, QRect(position, image.size()));
}

void PictureBox::paintScaled(const QImage& image, const QRect& target) {
    QPainter painter(&canvas());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    drawPicture(painter, target, image);
    update();
}

void PictureBox::fill(const QRect& area, const QColor& colour) {
    QPainter(&canvas()).fillRect(area, colour);
    update();
}

void PictureBox::print(const QString& text, QPoint position) {
    QPainter painter(&canvas());
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(position, page().size()), Qt::AlignLeft | Qt::AlignTop, text);
    update();
}

QImage PictureBox::painted() const {
    return canvas_.toImage();
}

void PictureBox::setEmptyText(const QString& text) {
    emptyText_ = text;
    setAccessibleDescription(text);
    update();
}

void PictureBox::outline(const QRect& box, const QColor& colour) {
    removeOutline(box);
    outlines_.append({box, colour});
}

void PictureBox::removeOutline(const QRect& box) {
    outlines_.removeIf([&](const Outline& old) { return old.box == box; });
    update(box.translated(origin()));
}

void PictureBox::frame(const QRect& cell, bool visible) {
    for (const QRect& box : {cell, cell.adjusted(1, 1, -1, -1)}) {
        if (visible) {
            outline(box, Qt::white);
        } else {
            removeOutline(box);
        }
    }
}

QColor PictureBox::outlineAt(const QRect& box) const {
    for (const Outline& outline : outlines_) {
        if (outline.box == box) {
            return outline.colour;
        }
    }
    return {};
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    painter.setClipRect(contentsRect());
    painter.translate(origin());
    if (!picture_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        drawPicture(painter, fittedInto(page(), picture_.size()), picture_);
    } else if (!canvas_.isNull()) {
        painter.drawPixmap(0, 0, canvas_);
    } else if (!emptyText_.isEmpty()) {
        QFont letters = font();
        letters.setPixelSize(kEmptyTextPixels);
        painter.setFont(letters);
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(page().adjusted(kEmptyTextMargin, 0, -kEmptyTextMargin, 0),
                         Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
    }
    for (const Outline& outline : outlines_) {
        drawOutline(painter, outline.box, outline.colour);
    }
    painter.end();
    QFrame::paintEvent(event);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    const QPoint position = event->position().toPoint() - origin();
    if (!page().contains(position)) {
        return;
    }
    if (focusPolicy() != Qt::NoFocus) {
        setFocus(Qt::MouseFocusReason);
    }
    pressed_ = position;
    Q_EMIT mouseDown(position);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT mouseMoved(event->position().toPoint() - origin());
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of a double click is no further mouse down: the first one has selected.
    // Unless that one was thrown away or fell on another window.
    const int reach = 2 * QGuiApplication::styleHints()->mouseDoubleClickDistance();
    const QPoint position = event->position().toPoint() - origin();
    if (!page().contains(position)) {
        return;
    }
    if (!pressed_ || (position - *pressed_).manhattanLength() > reach) {
        mousePressEvent(event);
        return;
    }
    Q_EMIT doubleClicked();
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            Q_EMIT arrowPressed(-1, 0);
            break;
        case Qt::Key_Right:
            Q_EMIT arrowPressed(1, 0);
            break;
        case Qt::Key_Up:
            Q_EMIT arrowPressed(0, -1);
            break;
        case Qt::Key_Down:
            Q_EMIT arrowPressed(0, 1);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT enterPressed();
            break;
        default:
            QFrame::keyPressEvent(event);
    }
}

}  // namespace marlowick
