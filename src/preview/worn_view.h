// The control that shows a figure as it is worn and lets it be turned, by mouse and by keys. It
// draws with the processor alone, at the scale of the screen.
#pragma once

#include <QString>
#include <memory>
#include <optional>
#include <string>

#include "preview/raster.h"
#include "preview/scene.h"
#include "widgets/picture_box.h"

namespace marlowick {

// The pixels of an image; nullptr for a null image.
std::shared_ptr<const Texture> textureOf(const QImage& image);

// Decodes a bitmap file's bytes as a picture box does.
std::optional<Texture> decodeTexture(const std::string& bytes);

// What a figure wears, in words: body and skin, and for a sim which of head and hands it has.
QString wornWords(const Worn& worn, const Scene& scene);

// Why there is no figure, in words.
QString noFigureWords(NoFigure why);

class WornView : public PictureBox {
    Q_OBJECT
  public:
    explicit WornView(QWidget* parent = nullptr);

    // Shows another figure from where the one before was looked at; nullptr for none. The
    // accessible name is title and, of a figure, from where it is seen.
    void setFigure(std::shared_ptr<const Figure> figure, const QString& title);
    const std::shared_ptr<const Figure>& figure() const { return figure_; }

    // As at the beginning: from the front, the whole figure.
    void faceFront();
    const View& view() const { return view_; }

    // Covers another control from now on, whatever size that has.
    void cover(QWidget& control);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // Degrees: the front to the right, the top towards the eye.
    void turn(float yaw, float pitch);
    void comeNearer(double steps);
    void tellName();
    void drawFigure(QPainter& painter);

    std::shared_ptr<const Figure> figure_;
    QString title_;
    View view_;
    Raster raster_;
    std::optional<QPointF> dragged_;  // where the mouse was last, while it turns the figure
};

}  // namespace marlowick
