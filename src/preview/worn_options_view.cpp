#include "preview/worn_options_view.h"

#include <QHBoxLayout>

#include "foundation/error_trap.h"
#include "widgets/look.h"
#include "widgets/settings.h"
#include "widgets/stock_pictures.h"

namespace marlowick {
namespace {

constexpr int kGap = 12;
constexpr int kSmallGap = 6;

const QString kWorn = QStringLiteral("Worn");
const QString kSkin = QStringLiteral("Skin");

bool wornIsSet() {
    return readSetting(setting::kSkinView, kWorn) != kSkin;
}

QRadioButton* newOption(const char* name, const QString& caption, const QString& toolTip,
                        QWidget* parent) {
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(QString::fromLatin1(name));
    option->setToolTip(toolTip);
    parent->layout()->addWidget(option);
    return option;
}

}  // namespace

WornOptions::WornOptions(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    row->addStretch();
    optWorn_ =
        newOption("optWorn", kWorn, QStringLiteral("Show the clothes as they are worn"), this);
    optSkin_ = newOption("optSkin", kSkin, QStringLiteral("Show the flat bitmap"), this);
    view_ = new WornView(parent);
    view_->setObjectName(QStringLiteral("wornView"));
    view_->hide();
    (wornIsSet() ? optWorn_ : optSkin_)->setChecked(true);
    connect(optWorn_, &QRadioButton::toggled, this, &WornOptions::choose);
}

void WornOptions::makeSmall() {
    layout()->setSpacing(kSmallGap);
    useSmallMark(*optWorn_);
    useSmallMark(*optSkin_);
}

void WornOptions::choose(bool worn) {
    writeSetting(setting::kSkinView, worn ? kWorn : kSkin);
    Q_EMIT switched();
}

void WornOptions::putBehind(QWidget* control) {
    setTabOrder(control, optWorn_);
    setTabOrder(optWorn_, optSkin_);
    setTabOrder(optSkin_, view_);
}

bool WornOptions::readSetting() {
    if (optWorn_->isChecked() == wornIsSet()) {
        return false;
    }
    const QSignalBlocker quiet(optWorn_);
    (wornIsSet() ? optWorn_ : optSkin_)->setChecked(true);
    return true;
}

Scene WornOptions::sceneOf(const PictureBox& flat, const std::optional<Worn>& worn) const {
    Scene scene;
    ignoringErrors([&] {
        const bool hasSkin = !flat.picture().isNull() && !isCard(flat.picture());
        if (hasSkin || !worn) {
            scene = makeScene(worn, textureOf(flat.picture()), decodeTexture);
        } else {
            scene.why = NoFigure::NoSkin;
        }
    });
    return scene;
}

void WornOptions::show(PictureBox& flat, const std::optional<Worn>& worn) {
    view_->cover(flat);
    if (!optWorn_->isChecked()) {
        view_->hide();
        view_->setFigure(nullptr, flat.accessibleName());
        flat.setAccessibleDescription({});
        return;
    }
    const Scene scene = sceneOf(flat, worn);
    if (!scene.figure) {
        const QString words = QStringLiteral("No figure to show: %1. The flat skin is shown.")
                                  .arg(noFigureWords(scene.why));
        view_->hide();
        view_->setFigure(nullptr, flat.accessibleName() + QStringLiteral(". ") + words);
        flat.setAccessibleDescription(words);
        return;
    }
    flat.setAccessibleDescription({});
    view_->setFigure(
        scene.figure,
        QStringLiteral("%1 worn: %2").arg(flat.accessibleName(), wornWords(*worn, scene)));
    view_->show();
}

}  // namespace marlowick
