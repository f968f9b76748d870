#include "windows/frame/doors/ProgressDlg.h"

#include "ui_ProgressDlg.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>

CProgressDlg::CProgressDlg(const QString& title, bool showCancel)
    : m_ui(std::make_unique<Ui::ProgressDlg>()), m_showCancel(showCancel) {
    m_ui->setupUi(this);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    m_ui->cancel->setVisible(showCancel);
    m_showTimer.setSingleShot(true);
    m_showTimer.setInterval(ShowDelay);
    connect(&m_showTimer, &QTimer::timeout, this, &CProgressDlg::ShowUnlessAsking);
    connect(m_ui->cancel, &QPushButton::clicked, this, &CProgressDlg::reject);
}

CProgressDlg::~CProgressDlg() {
    // Before this window goes: otherwise another program's window comes to the front.
    EnableOwner();
}

void CProgressDlg::Create(QWidget* owner) {
    m_owner = owner == nullptr ? nullptr : owner->window();
    if (m_owner != nullptr) {
        // In this order: the windows over the owner, of which this becomes one, take no input.
        if (CDisabledWindow::TakesInput(*m_owner))
            m_disabledOwner.emplace(*m_owner);
        setParent(m_owner, windowFlags());
    }
    m_showTimer.start();
}

void CProgressDlg::EnableOwner() {
    if (!m_disabledOwner || m_owner == nullptr)
        return;
    m_disabledOwner.reset();
    if (isActiveWindow())
        m_owner->activateWindow();
}

void CProgressDlg::ShowUnlessAsking() {
    // Not in front of a box that waits for an answer.
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == m_owner)
        show();
    else
        m_showTimer.start();
}

void CProgressDlg::ShowNow() {
    m_showTimer.stop();
    show();
    // The desktop answers a new window with a request to paint it; that takes a moment.
    constexpr int PaintMs = 100;
    QElapsedTimer waited;
    for (waited.start(); waited.elapsed() < PaintMs;)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void CProgressDlg::SetRange(int low, int high) {
    m_ui->progressBar->setRange(low, high);
    m_ui->progressBar->setValue(low);
}

void CProgressDlg::SetPhaseText(const QString& text) {
    m_ui->phaseLabel->setText(text);
    m_ui->detailLabel->clear();
}

void CProgressDlg::SetDetailText(const QString& text) {
    m_ui->detailLabel->setText(text);
}

void CProgressDlg::SetPosition(int position) {
    QCoreApplication::processEvents();
    m_ui->progressBar->setValue(position);
}

bool CProgressDlg::CancelRequested() {
    QCoreApplication::processEvents();
    return std::exchange(m_cancelRequested, false);
}

void CProgressDlg::reject() {
    m_cancelRequested = m_showCancel;
}

void CProgressDlg::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}
