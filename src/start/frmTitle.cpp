#include "start/frmTitle.h"

#include "browser/frmMain.h"
#include "foundation/version.h"
#include "ui_frmTitle.h"

namespace marlowick {
namespace {

constexpr const char* kNotice =
    "Marlowick changes the files in which The Sims keeps your sims. It changes only what you ask "
    "it to change, and it makes a backup of a sim before it saves it, unless you turn that off in "
    "the Options menu. Even so, no program is free of mistakes: keep a copy of your neighborhoods "
    "in a safe place.\n\n"
    "Do not use Marlowick while The Sims is running.\n\n"
    "Marlowick is free software. It comes without any warranty. It is not made, endorsed or "
    "supported by the makers of The Sims.";

}  // namespace

frmTitle::frmTitle() : ModalForm("frmTitle"), ui(std::make_unique<Ui::frmTitle>()) {}

frmTitle::~frmTitle() = default;

void frmTitle::buildControls() {
    ui->setupUi(this);
    ui->Picture1->setPicture(QImage(QStringLiteral(":/pictures/title.png")));
    ui->Text1->setPlainText(QString::fromLatin1(kNotice));
    onClick(ui->cmdOK, "cmdOK_Click", [this] { close(); });
    ui->cmdOK->setFocus();
}

void frmTitle::Form_Load() {
    setWindowTitle(QStringLiteral("Marlowick - Version ") + QString::fromLatin1(kVersionText));
}

void frmTitle::Form_Unload() {
    theWindow<frmMain>().showMain();
}

}  // namespace marlowick
