#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QListWidget>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace marlowick {
namespace {

// A line of a list as the application's style draws it.
QImage lineWith(QStyle::State state) {
    QListWidget list;
    QStyleOptionViewItem line;
    line.initFrom(&list);
    line.palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::lightGray);
    line.state = QStyle::State_Enabled | state;
    line.rect = QRect(0, 0, 120, 18);
    line.text = QStringLiteral("b001fafit_01");
    line.features = QStyleOptionViewItem::HasDisplay;
    line.showDecorationSelected = true;
    line.widget = &list;
    QImage image(line.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &line, &painter, &list);
    return image;
}

TEST(LookTest, AChosenLineStaysPlainToSeeWhenItsListHasLostTheFocus) {
    const QImage plain = lineWith(QStyle::State_None);
    const QImage active = lineWith(QStyle::State_Selected | QStyle::State_Active);
    EXPECT_NE(active.pixel(110, 9), plain.pixel(110, 9));
    EXPECT_TRUE(lineWith(QStyle::State_Selected) == active);
}

}  // namespace
}  // namespace marlowick
