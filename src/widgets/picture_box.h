// The picture control. It shows a loaded picture, or an image that is painted on
// it piece by piece and kept, and draws outlines on top that aren't kept. All
// positions are device-independent pixels from the first one inside its border,
// which is two pixels wide, from 0.
#pragma once

#include <QColor>
#include <QFrame>
#include <QImage>
#include <QList>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <optional>
#include <string>

#include "foundation/picture_target.h"

namespace marlowick {

// The bitmap in the first length bytes of a file as an image. Raises as PictureTarget::load.
QImage decodePicture(const Path& path, std::int64_t length);

// The bitmap that some bytes begin with, likewise. Raises 481.
QImage decodePicture(const std::string& bytes);

class PictureBox : public QFrame, public PictureTarget {
    Q_OBJECT
  public:
    explicit PictureBox(QWidget* parent = nullptr);

    // The loaded picture: shown whole, in the middle, made smaller only if it is larger than the
    // control; a card is laid out anew for the room that it has. A null image blanks the control.
    using PictureTarget::load;
    void load(const Path& path, std::int64_t length) override;
    void setPicture(const QImage& picture);
    const QImage& picture() const { return picture_; }

    // Painting that stays. A box with a loaded picture loses it at the first painting.
    void clear();
    void paint(const QImage& image, QPoint position);
    void paintScaled(const QImage& image, const QRect& target);
    void fill(const QRect& area, const QColor& colour);
    void print(const QString& text, QPoint position);
    // What has been painted, at its natural size.
    QImage painted() const;

    // What stands in the box while nothing is painted on it.
    void setEmptyText(const QString& text);
    const QString& emptyText() const { return emptyText_; }

    // Draws an unfilled box on top, in place of one that lies at the same place.
    void outline(const QRect& box, const QColor& colour);
    void removeOutline(const QRect& box);
    // Draws two boxes, one just inside the other, in white, or takes them away: the frame of a
    // chosen cell.
    void frame(const QRect& cell, bool visible);
    QColor outlineAt(const QRect& box) const;  // invalid if there is none

    // Where (0, 0) lies in the control, for what is laid over it.
    QPoint origin() const { return contentsRect().topLeft(); }

  Q_SIGNALS:
    // A press on the border is none. Moves count on it and, while a button is held, beyond it.
    void mouseDown(QPoint position);
    void mouseMoved(QPoint position);
    void doubleClicked();
    // Arrow keys and Enter, for a control that takes the focus.
    void arrowPressed(int columns, int rows);
    void enterPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct Outline {
        QRect box;
        QColor colour;
    };
    QPixmap& canvas();
    QRect page() const { return {QPoint(0, 0), contentsRect().size()}; }

    QImage picture_;
    QPixmap canvas_;
    QString emptyText_;
    QList<Outline> outlines_;
    std::optional<QPoint> pressed_;  // the last mouse down on what is shown
};

}  // namespace marlowick
