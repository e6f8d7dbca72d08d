// A label of a title and, below it, a path, in what width there is. What doesn't fit in is left out
// where it is painted; the label's text and its tool tip are whole.
#pragma once

#include <QLabel>
#include <QStringList>

namespace marlowick {

class ElidedLabel : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;

    // The path is shortened in its middle. Without a path the second line stays empty.
    void setTexts(const QString& title, const QString& path);

    // The lines as they are painted.
    QStringList fittedLines() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marlowick
