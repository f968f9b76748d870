#pragma once

#include "core/base/ComError.h"
#include "core/report/office/OfficeProcess.h"
#include "core/report/office/OfficeSpreadsheet.h"
#include "core/report/office/OfficeWatchdog.h"

#include <com/sun/star/frame/XDesktop.hpp>
#include <com/sun/star/uno/Exception.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <rtl/ustring.hxx>

#include <memory>
#include <string>

namespace css = com::sun::star;
using rtl::OUString;

inline OUString ToOffice(const QString& text) {
    return OUString(reinterpret_cast<const sal_Unicode*>(text.utf16()), static_cast<sal_Int32>(text.size()));
}
inline QString FromOffice(const OUString& text) {
    return QString(reinterpret_cast<const QChar*>(text.getStr()), text.getLength());
}

/// Result codes of remote calls, as Windows publishes them.
namespace OfficeResult {
inline constexpr std::uint32_t ServerDied = 0x80010007; // RPC_E_SERVER_DIED
inline constexpr std::uint32_t TimedOut = 0x8001011F;   // RPC_E_TIMEOUT
inline constexpr std::uint32_t BadIndex = 0x8002000B;   // DISP_E_BADINDEX
} // namespace OfficeResult

/// An office process with our connection to it. Every object that holds something of the office holds this one too.
class COfficeConnection {
public:
    /// Starts an office and connects to it; null when that cannot be done within the limit.
    static std::shared_ptr<COfficeConnection> Open(const OfficeLimits& limits);
    ~COfficeConnection();

    const QString& RunFolder() const { return m_process->RunFolder(); }
    const css::uno::Reference<css::frame::XDesktop>& Desktop() const { return m_desktop; }

    /// Runs `work`, which calls the office, bounded in time. Whatever the office raises becomes a ComError with
    /// `failure`, followed by the office's own words, as its description; `operation` and `concerned` go into it too.
    template <class Work>
    auto Call(const char* operation, const QString& concerned, const QString& failure, Work&& work) {
        RequireAlive(operation, concerned);
        try {
            const COfficeWatchdog::CGuard guard(m_watchdog, m_limits.call);
            return work();
        } catch (const css::uno::Exception& error) {
            Raise(operation, concerned, failure, FromOffice(error.Message));
        }
    }

    /// Asks the office to end, and ends it when it does not. Raises nothing.
    void Quit();
    /// Ends the office at once, though objects of it may still be held.
    void End();

private:
    COfficeConnection(std::unique_ptr<COfficeProcess> process, const OfficeLimits& limits);

    bool Connect();
    bool Answers();
    void RequireAlive(const char* operation, const QString& concerned);
    [[noreturn]] void Raise(const char* operation, const QString& concerned, const QString& failure,
                            const QString& words);
    [[noreturn]] void RaiseLost(const char* operation, const QString& concerned);

    const OfficeLimits m_limits;
    std::unique_ptr<COfficeProcess> m_process;
    COfficeWatchdog m_watchdog;
    css::uno::Reference<css::frame::XDesktop> m_desktop;
    bool m_lost = false;
};
