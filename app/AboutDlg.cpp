#include "app/AboutDlg.h"

#include "store/Messages.h"
#include "store/Shared.h"
#include "store/SqlText.h"
#include "ui_AboutDlg.h"

#include <QDesktopServices>
#include <QIcon>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr int LongestAddress = 500;
constexpr const char* MailAddress = "podpora@pelrond.example";
constexpr const char* WebAddress = "https://www.pelrond.example/kuvel";

QString Link(const char* address) {
    return QStringLiteral("<a href=\"%1\">%1</a>").arg(QString::fromLatin1(address));
}

} // namespace

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::AboutDlg>()) {
    m_ui->setupUi(this);
    m_ui->iconLabel->setPixmap(QIcon(QStringLiteral(":/icons/kuvel.svg")).pixmap(QSize(48, 48), devicePixelRatioF()));
    m_ui->versionLabel->setText(MessageText("Kuvel, verze %s  (rel. %s)", FormatVersion(), "Jul  2 2012"));
    m_ui->mailLabel->setText(Link(MailAddress));
    m_ui->webLabel->setText(Link(WebAddress));
    connect(m_ui->mailLabel, &QLabel::linkActivated, this, &CAboutDlg::SendMail);
    connect(m_ui->webLabel, &QLabel::linkActivated, this,
            [](const QString& address) { QDesktopServices::openUrl(QUrl(address)); });
    connect(m_ui->okButton, &QPushButton::clicked, this, &QDialog::accept);
}

CAboutDlg::~CAboutDlg() = default;

void CAboutDlg::SendMail() {
    QUrl mail;
    mail.setScheme(QStringLiteral("mailto"));
    mail.setPath(QString::fromLatin1(MailAddress).left(LongestAddress));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("subject"),
                       QStringLiteral("Připomínka k programu \"%1\"").arg(m_ui->versionLabel->text()));
    mail.setQuery(query);
    if (!QDesktopServices::openUrl(mail))
        ShowWarning(QStringLiteral("Nelze zavést podporu poštovního systému."));
}
