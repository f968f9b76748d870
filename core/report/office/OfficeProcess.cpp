#include "core/report/office/OfficeProcess.h"

#include "core/report/office/OfficeProgram.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QUrl>

#include <unistd.h>

#include <algorithm>

namespace {

QString MakeRunFolder() {
    QString parent = QDir::tempPath();
    const QByteArray name = QFile::encodeName(parent);
    if (std::any_of(name.begin(), name.end(), [](char c) { return c < 0; }))
        parent = "/tmp";
    QTemporaryDir folder(parent + "/kuvel-XXXXXX");
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() : QString();
}

QByteArray ProfileUrl(const COfficeProfile& profile) {
    return QUrl::fromLocalFile(profile.Folder()).toEncoded();
}

/// Where the office puts a socket of this name (the only folder that it accepts).
QByteArray SocketPath(const QByteArray& name) {
    return "/tmp/OSL_PIPE_" + QByteArray::number(getuid()) + "_" + name;
}

/// The socket through which a second office of the same profile would hand its documents over to the first. A killed
/// office leaves it behind.
QByteArray HandOverSocketPath(const COfficeProfile& profile) {
    const QString url = QString::fromLatin1(ProfileUrl(profile));
    const QByteArray digest =
        QCryptographicHash::hash({reinterpret_cast<const char*>(url.utf16()), url.size() * qsizetype(sizeof(char16_t))},
                                 QCryptographicHash::Md5);
    QByteArray name = "SingleOfficeIPC_";
    for (char byte : digest)
        name += QByteArray::number(static_cast<unsigned char>(byte), 16); // the office does not pad it
    return SocketPath(name);
}

QByteArrayList Environment(const QByteArray& runFolder) {
    // The office does not start, or hangs, when its home is missing or closed to it.
    const QByteArray home = qgetenv("HOME");
    const bool usable = !home.isEmpty() && access(home.constData(), W_OK | X_OK) == 0;
    const QByteArrayList own{"TMPDIR=" + runFolder, "SAL_USE_VCLPLUGIN=svp", "HOME=" + (usable ? home : runFolder)};
    QByteArrayList environment = own;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const QByteArray name = QByteArray(*entry).left(QByteArray(*entry).indexOf('=') + 1);
        if (std::none_of(own.begin(), own.end(), [&](const QByteArray& text) { return text.startsWith(name); }))
            environment.append(*entry);
    }
    return environment;
}

} // namespace

std::unique_ptr<COfficeProcess> COfficeProcess::Start(bool mayUseKeptProfile) {
    const QString program = FindOffice();
    const QString runFolder = program.isEmpty() ? QString() : MakeRunFolder();
    if (runFolder.isEmpty())
        return nullptr;
    std::unique_ptr<COfficeProcess> office(new COfficeProcess(runFolder, mayUseKeptProfile));
    const QByteArray folder = QFile::encodeName(runFolder);
    const QByteArray pipe = office->PipeName().toLatin1();
    const QByteArrayList arguments{QFile::encodeName(program),
                                   "--headless",
                                   "--norestore",
                                   "--nologo",
                                   "--nodefault",
                                   "--nolockcheck",
                                   "--accept=pipe,name=" + pipe + ";urp",
                                   "-env:UserInstallation=" + ProfileUrl(office->m_profile)};
    const QByteArrayList remains{folder, SocketPath(pipe), HandOverSocketPath(office->m_profile)};
    office->m_undertaker = COfficeUndertaker::Start(arguments, Environment(folder), remains, office->m_profile.Claim());
    if (!office->m_undertaker) {
        QDir(runFolder).removeRecursively();
        return nullptr;
    }
    return office;
}

QString COfficeProcess::PipeName() const {
    return QFileInfo(m_runFolder).fileName();
}

COfficeProcess::COfficeProcess(const QString& runFolder, bool mayUseKeptProfile)
    : m_runFolder(runFolder), m_profile(runFolder, mayUseKeptProfile) {}

COfficeProcess::~COfficeProcess() {
    if (m_undertaker && m_undertaker->End() && m_sound)
        m_profile.MarkSound();
}
