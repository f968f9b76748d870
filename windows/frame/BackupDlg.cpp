#include "windows/frame/BackupDlg.h"

#include "core/base/AppDir.h"
#include "core/base/FileDoor.h"
#include "core/base/Messages.h"
#include "core/base/Profile.h"
#include "core/base/SqlText.h"
#include "ui_BackupDlg.h"
#include "windows/widgets/HelpButton.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString Section = QStringLiteral("Zalohovani");
const QString LastBackup = QStringLiteral("Posledni zaloha");

QString WithoutTail(QString path) {
    const auto cut = [&path](auto isTail) {
        while (!path.isEmpty() && isTail(path.back()))
            path.chop(1);
    };
    cut([](QChar c) { return c.isSpace(); });
    cut([](QChar c) { return c == QDir::separator(); });
    return path;
}

/// The folder of the path is where the box opens, when there is one; the name is what it proposes.
QString Proposal(const QString& field) {
    const QString path = WithoutTail(field);
    return path.lastIndexOf(QDir::separator()) > 0 ? path : QString();
}

} // namespace

CBackupDlg::CBackupDlg(Mode mode, CDataStore& store, BackupActions actions, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::BackupDlg>()), m_mode(mode), m_store(store),
      m_actions(std::move(actions)) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->closeButton, HelpContext::Backup);
    if (mode == Mode::Backup) {
        m_ui->actionButton->setText(QStringLiteral("Vytvořit zálohu"));
        m_ui->pathLabel->setText(QStringLiteral("Zálohovat do souboru:"));
        m_ui->pathEdit->setText(DefaultBackupPath());
    } else {
        m_ui->actionButton->setText(QStringLiteral("Obnovit zálohu"));
        m_ui->pathLabel->setText(QStringLiteral("Obnovit ze souboru:"));
        m_ui->pathEdit->setText(CProfile(SettingsPath()).GetString(Section, LastBackup, QString()));
    }
    connect(m_ui->browseButton, &QPushButton::clicked, this, &CBackupDlg::Browse);
    connect(m_ui->actionButton, &QPushButton::clicked, this, &CBackupDlg::Act);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QDialog::reject);
}

CBackupDlg::~CBackupDlg() = default;

void CBackupDlg::Browse() {
    const IFileDoor::Request request{windowTitle(), Proposal(m_ui->pathEdit->text()),
                                     QStringLiteral("Záloha dat (*.mdb)"), QStringLiteral("mdb")};
    const QString path = m_mode == Mode::Backup ? FileDoor()->SaveFile(request) : FileDoor()->OpenFile(request);
    if (!path.isEmpty())
        m_ui->pathEdit->setText(path);
}

void CBackupDlg::Act() {
    const QString path = m_ui->pathEdit->text().trimmed();
    if (m_mode == Mode::Backup) {
        if (!BackupDatabase(m_store, path, m_actions))
            return;
        // A relative path would mean another file the next time.
        ShowSettingsError(CProfile(SettingsPath()).Write(Section, {{LastBackup, QFileInfo(path).absoluteFilePath()}}));
        ShowMessage(MessageText("Záloha '%s' byla úspěšně vytvořena!", path), Message::Icon::Information);
    } else {
        if (!RestoreDatabase(m_store, path, m_actions))
            return;
        ShowMessage(MessageText("Data za zálohy '%s' byla obnovena!", path), Message::Icon::Information);
    }
    accept();
}
