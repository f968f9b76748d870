#include "windows/frame/KuvelApp.h"

#include "core/base/AppDir.h"
#include "core/base/ListDecimals.h"
#include "core/base/Messages.h"
#include "core/rules/Propagation.h"
#include "core/store/DataStore.h"
#include "windows/frame/EndSignals.h"
#include "windows/frame/FrameCommands.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"
#include "windows/frame/doors/ProgressDoor.h"

#include <QApplication>

CKuvelApp::CKuvelApp() = default;
CKuvelApp::~CKuvelApp() = default;

bool CKuvelApp::InitInstance() {
    m_instance = std::make_unique<CSingleInstance>();
    if (!m_instance->Acquire(DefaultAppDir())) {
        m_instance.reset();
        m_initResult = 0;
        return false;
    }
    SetAppDir(DefaultAppDir());
    *Options() = ReadPropagationOptions();
    ReadListDecimals();
    if (!g_dataStore.OpenDatabase())
        return false;
    QCoreApplication::setOrganizationName(QStringLiteral("Pelrond"));
    CreateFrame();
    m_frame->show();
    m_initResult = 0;
    return true;
}

void CKuvelApp::CreateFrame() {
    m_document = std::make_unique<CKuvelDoc>(g_dataStore);
    m_frame = std::make_unique<CMainFrame>(*m_document);
    m_progress = std::make_unique<CProgressDoor>(*m_frame);
    InstallFrameCommands(*m_frame, *m_progress);
    m_instance->OnAnotherStart([this] { m_frame->BringForward(); });
    // Dialogs first; the window stays while an operation has disabled it.
    m_endSignals = std::make_unique<CEndSignals>([] { QApplication::closeAllWindows(); });
    QObject::connect(m_frame.get(), &CMainFrame::Closed, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void CKuvelApp::ExitInstance() {
    // Nobody reads from here on. A copy that is started waits until the database is closed.
    m_instance->StopAnswering();
    m_endSignals.reset();
    // The registers hold recordsets until their window is gone.
    m_frame.reset();
    ShowSettingsError(WritePropagationOptions(*Options()));
    g_dataStore.CompactDatabase();
    g_dataStore.CloseDatabase();
}
