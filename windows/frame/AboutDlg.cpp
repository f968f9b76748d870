#include "windows/frame/AboutDlg.h"

#include "core/base/Shared.h"
#include "core/base/SqlText.h"
#include "ui_AboutDlg.h"
#include "windows/widgets/HelpButton.h"
#include "windows/widgets/WebLink.h"

#include <QIcon>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr int LongestAddress = 500;
constexpr const char* MailAddress = "podpora@pelrond.example";
constexpr const char* WebAddress = "https://www.pelrond.example/kuvel";

void MakeLink(QPushButton& button, const char* address) {
    button.setText(QString::fromLatin1(address));
    QPalette palette = button.palette();
    palette.setColor(QPalette::ButtonText, palette.color(QPalette::Link));
    button.setPalette(palette);
}

} // namespace

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::AboutDlg>()) {
    m_ui->setupUi(this);
    AddHelpButton(*m_ui->ok, HelpContext::Contents);
    m_ui->iconLabel->setPixmap(QIcon(QStringLiteral(":/icons/kuvel.svg")).pixmap(QSize(48, 48), devicePixelRatioF()));
    m_ui->versionLabel->setText(MessageText("Kuvel, verze %s  (rel. %s)", FormatVersion(), "Jul  2 2012"));
    MakeLink(*m_ui->mailButton, MailAddress);
    MakeLink(*m_ui->webButton, WebAddress);
    connect(m_ui->mailButton, &QPushButton::clicked, this, &CAboutDlg::SendMail);
    connect(m_ui->webButton, &QPushButton::clicked, this,
            [this] { OpenWebPage(QUrl(m_ui->webButton->text()), *this); });
    connect(m_ui->ok, &QPushButton::clicked, this, &QDialog::accept);
    m_ui->ok->setFocus();
}

CAboutDlg::~CAboutDlg() = default;

void CAboutDlg::SendMail() {
    QUrl mail;
    mail.setScheme(QStringLiteral("mailto"));
    mail.setPath(m_ui->mailButton->text().left(LongestAddress));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("subject"),
                       QStringLiteral("Připomínka k programu \"%1\"").arg(m_ui->versionLabel->text()));
    mail.setQuery(query);
    OpenAddress(mail, *this, QStringLiteral("Nelze zavést podporu poštovního systému."));
}
