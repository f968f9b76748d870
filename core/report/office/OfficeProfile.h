#pragma once

#include <QString>

/// The settings folder that our office starts with, never the user's own, so that an office that the user has open
/// neither takes our documents over nor lends us its macros and extensions.
///
/// A folder that was used before starts faster than a new one (measured: 1.13 s against 1.27 s), so one is kept in the
/// user's cache. Only one run can have it at a time; it is thrown away when the run before did not end well.
class COfficeProfile {
public:
    /// Takes the kept folder if nobody else has it, otherwise one inside `runFolder`.
    COfficeProfile(const QString& runFolder, bool mayUseKept);
    ~COfficeProfile();
    COfficeProfile(const COfficeProfile&) = delete;
    COfficeProfile& operator=(const COfficeProfile&) = delete;

    const QString& Folder() const { return m_folder; }
    /// Whether the folder has been used by an earlier run.
    bool IsUsed() const { return m_used; }
    /// The descriptor whose lock claims the kept folder, or -1. Whoever keeps it open keeps the claim.
    int Claim() const { return m_claim; }
    /// Says that the office ended well, so that the next run may have the folder.
    void MarkSound();

private:
    bool TakeKept();

    QString m_folder;
    QString m_unsoundMark;
    int m_claim = -1;
    bool m_used = false;
};
