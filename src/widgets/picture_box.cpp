#include "widgets/picture_box.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>

#include "system/runtime_error.h"

namespace marlowick {
namespace {

QRect fittedInto(const QRect& area, QSize size) {
    if (size.width() > area.width() || size.height() > area.height()) {
        size.scale(area.size(), Qt::KeepAspectRatio);
    }
    return {area.x() + (area.width() - size.width()) / 2,
            area.y() + (area.height() - size.height()) / 2, size.width(), size.height()};
}

}  // namespace

QImage decodePicture(const Path& path, std::int64_t length) {
    const std::string bitmap = readBitmap(path, length);
    QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bitmap.data()),
                                    static_cast<int>(bitmap.size()), "BMP");
    if (image.isNull()) {
        throw RuntimeError(error::kInvalidPicture);
    }
    return image;
}

PictureBox::PictureBox(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
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
        canvas_ = QPixmap(size() * devicePixelRatio());
        canvas_.setDevicePixelRatio(devicePixelRatio());
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
    QPainter(&canvas()).drawImage(position, image);
    update();
}

void PictureBox::paintScaled(const QImage& image, const QRect& target) {
    QPainter painter(&canvas());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, image);
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
    painter.drawText(QRect(position, size()), Qt::AlignLeft | Qt::AlignTop, text);
    update();
}

QImage PictureBox::painted() const {
    return canvas_.toImage();
}

void PictureBox::outline(const QRect& box, const QColor& colour) {
    outlines_.removeIf([&](const Outline& old) { return old.box == box; });
    if (colour != buttonFace()) {
        outlines_.append({box, colour});
    }
    update(box.adjusted(-1, -1, 1, 1));
}

void PictureBox::frame(const QRect& cell, bool visible) {
    const QColor colour = visible ? QColor(Qt::white) : buttonFace();
    outline(cell, colour);
    outline(cell.adjusted(1, 1, -1, -1), colour);
}

QColor PictureBox::outlineAt(const QRect& box) const {
    for (const Outline& outline : outlines_) {
        if (outline.box == box) {
            return outline.colour;
        }
    }
    return {};
}

void PictureBox::clearOutlines() {
    outlines_.clear();
    update();
}

QColor PictureBox::buttonFace() const {
    return palette().color(QPalette::Button);
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(rect(), buttonFace());
    if (!picture_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(fittedInto(contentsRect(), picture_.size()), picture_);
    }
    if (!canvas_.isNull()) {
        painter.drawPixmap(0, 0, canvas_);
    }
    for (const Outline& outline : outlines_) {
        painter.setPen(outline.colour);
        painter.drawRect(outline.box.adjusted(0, 0, -1, -1));
    }
    painter.end();
    QFrame::paintEvent(event);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (focusPolicy() != Qt::NoFocus) {
        setFocus(Qt::MouseFocusReason);
    }
    pressed_ = event->position().toPoint();
    Q_EMIT mouseDown(*pressed_);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    Q_EMIT mouseMoved(event->position().toPoint());
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of a double click is no further mouse down: the first one has selected.
    // Unless that one was thrown away or fell on another window.
    const int reach = 2 * QGuiApplication::styleHints()->mouseDoubleClickDistance();
    const QPoint position = event->position().toPoint();
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
