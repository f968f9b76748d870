#pragma once

#include "core/report/office/OfficeProfile.h"
#include "core/report/office/OfficeUndertaker.h"

#include <QString>

#include <chrono>
#include <memory>

/// One running office without windows, waiting for our connection. Destroying it ends the whole process group and
/// leaves nothing behind, in at most five seconds.
class COfficeProcess {
public:
    /// Null when there is no office. `mayUseKeptProfile` false takes a new profile in any case.
    static std::unique_ptr<COfficeProcess> Start(bool mayUseKeptProfile);
    ~COfficeProcess();

    /// A folder of this run that only this user can enter; it goes with the office. Its name is plain ASCII, for the
    /// office reads names by the locale and would not find others in the locale "C".
    const QString& RunFolder() const { return m_runFolder; }
    /// The name of the pipe on which the office waits for us.
    QString PipeName() const;
    /// Whether the office runs on a profile of an earlier run, which may be what ails it.
    bool HasUsedProfile() const { return m_profile.IsUsed(); }

    /// Ends the office at once; does not wait. May be called from any thread.
    void Kill() { m_undertaker->Kill(); }
    bool HasEnded(std::chrono::milliseconds wait = {}) { return m_undertaker->HasEnded(wait); }
    /// Ends the office and waits for it, at most five seconds.
    void End() { m_undertaker->End(); }
    /// Says that nothing went wrong in this run.
    void MarkSound() { m_sound = true; }

private:
    COfficeProcess(const QString& runFolder, bool mayUseKeptProfile);

    QString m_runFolder;
    COfficeProfile m_profile;
    std::unique_ptr<COfficeUndertaker> m_undertaker;
    bool m_sound = false;
};
