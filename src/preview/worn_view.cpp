#include "preview/worn_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <utility>

#include "foundation/error_trap.h"
#include "widgets/display_text.h"

namespace marlowick {
namespace {

constexpr float kKeyDegrees = 15;
constexpr float kDragDegrees = 180;  // from one edge of the control to the other
constexpr double kZoomStep = 1.2;
constexpr double kWheelNotch = 120;
constexpr float kRound = 360;
constexpr int kDirections = 8;

const char* const kSeenFrom[kDirections] = {"from the front", "from the front and its right",
                                            "from its right", "from behind and its right",
                                            "from behind",    "from behind and its left",
                                            "from its left",  "from the front and its left"};

QString seenFrom(float yaw) {
    constexpr float kDirection = kRound / kDirections;
    const int direction = static_cast<int>(std::lround(yaw / kDirection)) % kDirections;
    return QString::fromLatin1(kSeenFrom[direction]);
}

QString piecesWords(const Scene& scene) {
    QStringList pieces;
    if (scene.hasHead) {
        pieces.append(QStringLiteral("head"));
    }
    if (scene.hasLeftHand && scene.hasRightHand) {
        pieces.append(QStringLiteral("hands"));
    } else if (scene.hasLeftHand) {
        pieces.append(QStringLiteral("left hand"));
    } else if (scene.hasRightHand) {
        pieces.append(QStringLiteral("right hand"));
    }
    return pieces.isEmpty() ? QStringLiteral("without head and hands")
                            : QStringLiteral("with ") + pieces.join(QStringLiteral(" and "));
}

}  // namespace

std::shared_ptr<const Texture> textureOf(const QImage& image) {
    if (image.isNull()) {
        return nullptr;
    }
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    auto texture = std::make_shared<Texture>();
    texture->width = pixels.width();
    texture->height = pixels.height();
    texture->pixels.reserve(static_cast<std::size_t>(pixels.width()) *
                            static_cast<std::size_t>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        texture->pixels.insert(texture->pixels.end(), line, line + pixels.width());
    }
    return texture;
}

std::optional<Texture> decodeTexture(const std::string& bytes) {
    return *textureOf(decodePicture(bytes));
}

QString wornWords(const Worn& worn, const Scene& scene) {
    const QString clothes = QStringLiteral("body %1, skin %2")
                                .arg(toDisplay(worn.body.suit), toDisplay(worn.body.skin));
    return isPetKind(worn.kind) ? clothes : clothes + QStringLiteral(", ") + piecesWords(scene);
}

QString noFigureWords(NoFigure why) {
    switch (why) {
        case NoFigure::NotWorn:
            break;
        case NoFigure::NoSkeleton:
            return QStringLiteral("the game has no skeleton for it");
        case NoFigure::NoBody:
            return QStringLiteral("the game has no mesh of this body");
        case NoFigure::NoSkin:
            return QStringLiteral("the skin can not be displayed");
    }
    return QStringLiteral("there are no clothes");
}

WornView::WornView(QWidget* parent) : PictureBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::OpenHandCursor);
    setToolTip(QStringLiteral("Drag to turn, wheel to come nearer, double click to face front"));
}

void WornView::setFigure(std::shared_ptr<const Figure> figure, const QString& title) {
    figure_ = std::move(figure);
    title_ = title;
    tellName();
    update();
}

void WornView::faceFront() {
    view_ = {};
    tellName();
    update();
}

void WornView::cover(QWidget& control) {
    if (parentWidget() != &control) {
        if (parentWidget() != nullptr) {
            parentWidget()->removeEventFilter(this);
        }
        setParent(&control);
        control.installEventFilter(this);
    }
    setGeometry(control.rect());
}

bool WornView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return PictureBox::eventFilter(watched, event);
}

void WornView::tellName() {
    const QString name =
        figure_ ? title_ + QStringLiteral(", seen ") + seenFrom(view_.yaw) : title_;
    if (accessibleName() != name) {
        setAccessibleName(name);
    }
}

void WornView::turn(float yaw, float pitch) {
    view_.yaw = std::fmod(view_.yaw + yaw + kRound, kRound);
    view_.pitch = std::clamp(view_.pitch + pitch, -kSteepestPitch, kSteepestPitch);
    tellName();
    update();
}

void WornView::comeNearer(double steps) {
    view_.zoom =
        std::clamp(view_.zoom * static_cast<float>(std::pow(kZoomStep, steps)), 1.0F, kNearestZoom);
    update();
}

void WornView::drawFigure(QPainter& painter) {
    // As many pixels as the screen has, so that nothing is scaled.
    const qreal scale = devicePixelRatio();
    const int width = qCeil(contentsRect().width() * scale);
    const int height = qCeil(contentsRect().height() * scale);
    const std::vector<std::uint32_t>& pixels = raster_.draw(*figure_, view_, width, height);
    QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, height,
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    painter.drawImage(origin(), image);
}

void WornView::paintEvent(QPaintEvent* event) {
    PictureBox::paintEvent(event);
    if (!figure_ || contentsRect().isEmpty()) {
        return;
    }
    QPainter painter(this);
    // What memory can't serve stays an empty ground: a painting may not fail.
    ignoringErrors([&] { drawFigure(painter); });
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(contentsRect().adjusted(0, 0, -1, -1));
    }
}

void WornView::mousePressEvent(QMouseEvent* event) {
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::LeftButton) {
        dragged_ = event->position();
        setCursor(Qt::ClosedHandCursor);
    }
}

void WornView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragged_ || (event->buttons() & Qt::LeftButton) == 0) {
        return;
    }
    const QPointF way = event->position() - *dragged_;
    dragged_ = event->position();
    const auto degrees = kDragDegrees / static_cast<float>(std::max(width(), 1));
    turn(static_cast<float>(way.x()) * degrees, static_cast<float>(way.y()) * degrees);
}

void WornView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        dragged_.reset();
        setCursor(Qt::OpenHandCursor);
    }
}

void WornView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        faceFront();
    }
}

void WornView::wheelEvent(QWheelEvent* event) {
    comeNearer(event->angleDelta().y() / kWheelNotch);
    event->accept();
}

void WornView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            turn(-kKeyDegrees, 0);
            break;
        case Qt::Key_Right:
            turn(kKeyDegrees, 0);
            break;
        case Qt::Key_Up:
            turn(0, -kKeyDegrees);
            break;
        case Qt::Key_Down:
            turn(0, kKeyDegrees);
            break;
        case Qt::Key_Plus:
        case Qt::Key_Equal:  // the same key without Shift
            comeNearer(1);
            break;
        case Qt::Key_Minus:
            comeNearer(-1);
            break;
        case Qt::Key_Home:
            faceFront();
            break;
        default:
            event->ignore();
    }
}

}  // namespace marlowick
