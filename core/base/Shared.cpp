#include "core/base/Shared.h"

#include "core/base/AppDir.h"
#include "core/base/Messages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVersionNumber>

#include <dlfcn.h>

#include <cstddef>
#include <cstdint>
#include <vector>

static bool IsSeparator(QChar c) {
    return c == u'/' || c == QDir::separator();
}

/// Without the blanks and separators at its end; a root folder keeps its one separator.
static QString WithoutTail(const QString& path) {
    qsizetype length = path.size();
    while (length > 0 && (path[length - 1].isSpace() || IsSeparator(path[length - 1]))) {
        --length;
    }
    return length == 0 && !path.isEmpty() && IsSeparator(path.front()) ? path.first(1) : path.first(length);
}

void SplitList(const QString& text, QChar separator, QStringList& pieces) {
    qsizetype begin = 0;
    for (qsizetype end = text.indexOf(separator); end >= 0; end = text.indexOf(separator, begin)) {
        pieces.append(text.sliced(begin, end - begin).trimmed());
        begin = end + 1;
    }
    if (begin < text.size()) {
        pieces.append(UpperCzech(text.sliced(begin).trimmed()));
    }
}

QString UpperCzech(const QString& text) {
    QString upper = text;
    for (QChar& c : upper) {
        if (c != u'\u00B5') {
            c = c.toUpper();
        }
    }
    return upper;
}

bool DirectoryExists(const QString& path) {
    const QString folder = WithoutTail(path);
    return !folder.isEmpty() && QFileInfo(folder).isDir();
}

bool CreateDirectoryPath(const QString& path) {
    if (DirectoryExists(path)) {
        return true;
    }
    const QString folder = WithoutTail(path) + QDir::separator();
    bool first = true;
    for (qsizetype i = 0; i < folder.size(); ++i) {
        if (!IsSeparator(folder[i])) {
            continue;
        }
        const QString prefix = folder.first(i);
        // Another program may make the folder between the question and the attempt.
        const bool made =
            !prefix.isEmpty() && (DirectoryExists(prefix) || QDir().mkdir(prefix) || DirectoryExists(prefix));
        if (!made && !first) {
            return false;
        }
        first = false;
    }
    return true;
}

/// The folders that the system's loader looks through, besides those of its cache.
static QStringList LibraryFolders() {
    QStringList folders;
    void* self = dlopen(nullptr, RTLD_LAZY);
    Dl_serinfo size{};
    if (self && dlinfo(self, RTLD_DI_SERINFOSIZE, &size) == 0) {
        // The loader writes the list and its texts into one block whose size it has just told.
        std::vector<std::max_align_t> block(size.dls_size / sizeof(std::max_align_t) + 1);
        auto* list = reinterpret_cast<Dl_serinfo*>(block.data());
        *list = size;
        if (dlinfo(self, RTLD_DI_SERINFO, list) == 0) {
            const Dl_serpath* paths = list->dls_serpath;
            for (unsigned i = 0; i < list->dls_cnt; ++i) {
                folders.append(QFile::decodeName(paths[i].dls_name));
            }
        }
    }
    if (self) {
        dlclose(self);
    }
    return folders;
}

/// The file that is meant by the name; empty when neither the program folder nor the loader's folders have it.
static QString FindLibrary(const QString& fileName) {
    if (fileName.contains(u'/')) {
        return QFileInfo(fileName).isFile() ? fileName : QString();
    }
    QStringList folders = LibraryFolders();
    folders.prepend(g_strAppDir);
    for (const QString& folder : folders) {
        QString path = folder.endsWith(u'/') ? folder + fileName : folder + u'/' + fileName;
        if (!folder.isEmpty() && QFileInfo(path).isFile()) {
            return path;
        }
    }
    return {};
}

bool RegisterServerDll(const QString& fileName) {
    const auto refuse = [&fileName](const QString& sentence) {
        ShowMessage(sentence + fileName, Message::Icon::Error);
        return false;
    };
    // An empty name would load the program itself.
    if (fileName.isEmpty()) {
        return refuse(QStringLiteral("File doesn't exist!\n"));
    }
    const QString path = FindLibrary(fileName);
    // The loader may still know a bare name from its cache.
    void* library = dlopen(QFile::encodeName(path.isEmpty() ? fileName : path).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        return refuse(path.isEmpty() ? QStringLiteral("File doesn't exist!\n") : QStringLiteral("Cannot load library"));
    }
    using RegisterServer = std::int32_t (*)();
    const auto registerServer = reinterpret_cast<RegisterServer>(dlsym(library, "DllRegisterServer"));
    if (!registerServer) {
        dlclose(library);
        return refuse(QStringLiteral("Function DllRegisterServer not found in "));
    }
    registerServer();
    dlclose(library);
    return true;
}

QString FormatVersion() {
    const QVersionNumber version = QVersionNumber::fromString(QStringLiteral(KUVEL_VERSION));
    return version.isNull()
               ? QString()
               : QString::asprintf("%i.%i.%i", version.majorVersion(), version.minorVersion(), version.microVersion());
}
