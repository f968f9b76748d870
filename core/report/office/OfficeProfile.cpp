#include "core/report/office/OfficeProfile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

COfficeProfile::COfficeProfile(const QString& runFolder, bool mayUseKept) {
    if (mayUseKept && TakeKept())
        return;
    m_folder = runFolder + "/profile";
    m_unsoundMark.clear();
}

COfficeProfile::~COfficeProfile() {
    if (m_claim >= 0)
        close(m_claim);
}

bool COfficeProfile::TakeKept() {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/kuvel";
    if (!QDir().mkpath(cache))
        return false;
    const int claim = open(QFile::encodeName(cache + "/office.lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (claim < 0)
        return false;
    if (flock(claim, LOCK_EX | LOCK_NB) != 0) {
        close(claim);
        return false;
    }
    m_claim = claim;
    m_folder = cache + "/office";
    m_unsoundMark = cache + "/office.unsound";
    QFile mark(m_unsoundMark);
    const bool sound = !mark.exists() || QDir(m_folder).removeRecursively();
    if (!sound || !mark.open(QIODevice::WriteOnly)) {
        close(m_claim);
        m_claim = -1;
        return false;
    }
    m_used = QDir(m_folder).exists();
    return true;
}

void COfficeProfile::MarkSound() {
    if (!m_unsoundMark.isEmpty())
        QFile::remove(m_unsoundMark);
}
