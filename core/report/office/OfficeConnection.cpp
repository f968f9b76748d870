#include "core/report/office/OfficeConnection.h"

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <rtl/bootstrap.hxx>

#include <QUrl>

#include <csignal>
#include <thread>
#include <utility>

namespace {

/// The component context of this process, made once and left alone: taking it down while the program ends races with
/// the libraries' own clean-up.
const css::uno::Reference<css::uno::XComponentContext>& LocalContext() {
    static const auto* context = [] {
        // A call to an office that has just died raises; the write behind it must not end the program first.
        std::signal(SIGPIPE, SIG_IGN);
        rtl::Bootstrap::set("URE_BOOTSTRAP", "vnd.sun.star.pathname:" KUVEL_UNO_PROGRAM_DIR "/fundamentalrc");
        return new css::uno::Reference<css::uno::XComponentContext>(cppu::defaultBootstrap_InitialComponentContext());
    }();
    return *context;
}

} // namespace

std::shared_ptr<COfficeConnection> COfficeConnection::Open(const OfficeLimits& limits) {
    for (bool mayUseKeptProfile : {true, false}) {
        auto process = COfficeProcess::Start(mayUseKeptProfile);
        if (!process)
            return nullptr;
        std::shared_ptr<COfficeConnection> connection(new COfficeConnection(std::move(process), limits));
        if (connection->Connect())
            return connection;
        // A profile of an earlier run may be what keeps the office from starting; anything else will not get better.
        if (!connection->m_process->HasUsedProfile() || connection->m_watchdog.HasExpired())
            return nullptr;
    }
    return nullptr;
}

COfficeConnection::COfficeConnection(std::unique_ptr<COfficeProcess> process, const OfficeLimits& limits)
    : m_limits(limits), m_process(std::move(process)), m_watchdog([this] { m_process->Kill(); }) {}

COfficeConnection::~COfficeConnection() {
    End();
}

bool COfficeConnection::Connect() try {
    const auto context = css::bridge::UnoUrlResolver::create(LocalContext());
    const OUString url = ToOffice("uno:pipe,name=" + m_process->PipeName() + ";urp;StarOffice.ComponentContext");
    const COfficeWatchdog::CGuard guard(m_watchdog, m_limits.start);
    while (!m_process->HasEnded() && !m_watchdog.HasExpired()) {
        try {
            const css::uno::Reference<css::uno::XComponentContext> remote(context->resolve(url), css::uno::UNO_QUERY);
            if (!remote.is())
                return false;
            m_desktop.set(css::frame::Desktop::create(remote), css::uno::UNO_QUERY);
            return m_desktop.is();
        } catch (const css::connection::NoConnectException&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
    return false;
} catch (const css::uno::Exception&) {
    return false; // the office broke off while it started, or our own half of the bridge is not installed
}

bool COfficeConnection::Answers() try {
    if (m_watchdog.HasExpired())
        return false;
    const COfficeWatchdog::CGuard guard(m_watchdog, m_limits.call);
    m_desktop->getCurrentFrame();
    return true;
} catch (const css::uno::Exception&) {
    return false;
}

void COfficeConnection::RequireAlive(const char* operation, const QString& concerned) {
    if (m_lost || m_process->HasEnded())
        RaiseLost(operation, concerned);
}

void COfficeConnection::Raise(const char* operation, const QString& concerned, const QString& failure,
                              const QString& words) {
    if (!Answers())
        RaiseLost(operation, concerned);
    throw ComError(operation, concerned.toStdString(), ResultCode::Fail,
                   words.isEmpty() ? failure : failure + "\n" + words);
}

void COfficeConnection::RaiseLost(const char* operation, const QString& concerned) {
    m_lost = true;
    m_process->End();
    if (m_watchdog.HasExpired())
        throw ComError(operation, concerned.toStdString(), OfficeResult::TimedOut,
                       QStringLiteral("Tabulkový procesor neodpovídá, a byl proto ukončen."));
    throw ComError(operation, concerned.toStdString(), OfficeResult::ServerDied,
                   QStringLiteral("Tabulkový procesor byl neočekávaně ukončen."));
}

void COfficeConnection::Quit() {
    if (m_lost || m_process->HasEnded())
        return;
    try {
        const COfficeWatchdog::CGuard guard(m_watchdog, m_limits.quit);
        m_desktop->terminate();
    } catch (const css::uno::Exception&) {
        // The office may be gone before it has answered.
    }
    if (m_process->HasEnded(m_limits.quit) && !m_watchdog.HasExpired())
        m_process->MarkSound();
    End();
}

void COfficeConnection::End() {
    // An idle office loses nothing when it is killed, and that is quicker than asking it.
    if (m_desktop.is() && !m_lost && !m_process->HasEnded())
        m_process->MarkSound();
    m_lost = true;
    m_process->End();
}
