#include "start/frmErrorDialog.h"

#include <QApplication>
#include <QClipboard>

#include "foundation/error_trap.h"
#include "foundation/game.h"
#include "system/files.h"
#include "ui_frmErrorDialog.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/messages.h"
#include "widgets/shell.h"

namespace marlowick {
namespace {

const QString kSupportPage = QStringLiteral("https://marlowick.example/support");
const QString kSupportMail = QStringLiteral("support@marlowick.example");

}  // namespace

frmErrorDialog::frmErrorDialog()
    : ModalForm("frmErrorDialog"), ui(std::make_unique<Ui::frmErrorDialog>()) {}

frmErrorDialog::~frmErrorDialog() = default;

void frmErrorDialog::buildControls() {
    ui->setupUi(this);
    ui->lblExplanation->setText(
        QStringLiteral("The program has encountered an unexpected error and has halted operation. "
                       "The error encountered is listed in the text box below. Please post the "
                       "error in the support forum at %1. If you can not do that, mail it to %2. "
                       "You may not receive a response to your e-mail.")
            .arg(kSupportPage, kSupportMail));
    ui->cmdWebPage->setText(QStringLiteral("Open the support web page: %1").arg(kSupportPage));
    ui->cmdMailTo->setText(
        QStringLiteral("Send mail to the support address: %1").arg(kSupportMail));
    onClick(ui->cmdEnd, "cmdEnd_Click", [] { endProgram(); });
    onClick(ui->cmdCopy, "cmdCopy_Click", [this] { cmdCopy_Click(); });
    onClick(ui->cmdWebPage, "cmdWebPage_Click", [this] { cmdWebPage_Click(); });
    onClick(ui->cmdMailTo, "cmdMailTo_Click", [this] { cmdMailTo_Click(); });
}

void frmErrorDialog::Form_Load() {
    const bool reported = ignoringErrors([&] {
        const std::string report = errorReport();
        writeWholeFile(ProgramFolder + "\\errorlog.txt", report);
        ui->txtMessage->setPlainText(
            QString::fromStdString(report).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    });
    if (!reported) {
        endProgram();
    }
}

void frmErrorDialog::Form_Activate() {
    setPointer(Pointer::Default);
    ui->cmdFocus->setFocus();
}

void frmErrorDialog::cmdCopy_Click() {
    ui->cmdFocus->setFocus();
    QClipboard* clipboard = QApplication::clipboard();
    clipboard->clear();
    clipboard->setText(ui->txtMessage->toPlainText());
}

void frmErrorDialog::cmdMailTo_Click() {
    ui->cmdFocus->setFocus();
    shellOpen(this, QStringLiteral("mailto:") + kSupportMail);
}

void frmErrorDialog::cmdWebPage_Click() {
    ui->cmdFocus->setFocus();
    const Path probe = toPath(browserProbeFile());
    QString browser;
    const bool made = ignoringErrors([&] { writeWholeFile(probe, "\"<HTML> <\\HTML>\"\r\n"); });
    if (!made || findProgramFor(browserProbeFile(), browser) < kShellSuccess) {
        showMessage(QStringLiteral("Error - Browser Not Found"), MessageIcon::Critical,
                    MessageButtons::Ok, QStringLiteral("Could not find the default web browser!"));
    } else if (shellStart(this, browser, kSupportPage) < kShellSuccess) {
        showMessage(QStringLiteral("Error - Bad URL"), MessageIcon::Critical, MessageButtons::Ok,
                    QStringLiteral("Support web page not found!"));
    }
    ignoringErrors([&] { removeIfPresent(probe); });
}

}  // namespace marlowick
