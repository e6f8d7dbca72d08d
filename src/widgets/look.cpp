#include "widgets/look.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QPalette>
#include <QPointer>
#include <QProxyStyle>
#include <QRadioButton>
#include <QStringList>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

namespace marlowick {
namespace {

constexpr int kFontPixels = 12;

#ifdef _WIN32
constexpr const char* kStyle = "windowsvista";
// Wine has the name of the system's font, but not the font: what it takes instead may be one with
// serifs. Of Liberation Sans it drops thin letters at some sizes.
const QStringList kFamilies = {QStringLiteral("Segoe UI"), QStringLiteral("Tahoma"),
                               QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                               QStringLiteral("Arial")};
#else
// One look on every desktop.
constexpr const char* kStyle = "Fusion";
const QStringList kFamilies = {QStringLiteral("DejaVu Sans")};
#endif

// A command takes the focus from its list: the chosen line stays as plain to see as before.
class PlainSelection : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* line = qstyleoption_cast<const QStyleOptionViewItem*>(option);
        if (element != CE_ItemViewItem || line == nullptr) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QStyleOptionViewItem active = *line;
        active.state |= State_Active;
        QProxyStyle::drawControl(element, &active, painter, widget);
    }
};

// Letters on a page: names, and in grey what stands where nothing is.
constexpr QColor kPageInk(0x10, 0x14, 0x18);
constexpr QColor kPageGrey(0x30, 0x38, 0x40);

constexpr int kMarkSize = 10;
constexpr int kMarkSpacing = 4;

class SmallMarks : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        switch (metric) {
            case PM_ExclusiveIndicatorWidth:
            case PM_ExclusiveIndicatorHeight:
                return kMarkSize;
            case PM_RadioButtonLabelSpacing:
                return kMarkSpacing;
            default:
                return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

}  // namespace

void useSmallMark(QRadioButton& option) {
    // One for all, as long as the program.
    static QPointer<QStyle> marks;
    if (marks.isNull()) {
        marks = new SmallMarks(QString::fromLatin1(kStyle));
        marks->setParent(qApp);
    }
    option.setStyle(marks);
}

void applyLook() {
    QApplication::setStyle(new PlainSelection(QString::fromLatin1(kStyle)));
    QFont font = QApplication::font();
    const auto family = std::find_if(kFamilies.begin(), kFamilies.end(), [](const QString& name) {
        return QFontDatabase::hasFamily(name);
    });
    font.setFamily(family != kFamilies.end() ? *family : kFamilies.first());
    font.setPixelSize(kFontPixels);
    QApplication::setFont(font);
}

QColor pageGround() {
    return {0x9F, 0xB0, 0xC0};
}

void colourPage(QWidget& page) {
    QPalette colours = page.palette();
    colours.setColor(QPalette::Button, pageGround());
    colours.setColor(QPalette::WindowText, kPageInk);
    colours.setColor(QPalette::PlaceholderText, kPageGrey);
    page.setPalette(colours);
}

}  // namespace marlowick
