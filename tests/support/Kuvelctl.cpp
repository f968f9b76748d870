#include "tests/support/Kuvelctl.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcessEnvironment>

namespace {

/// QProcess needs one.
void NeedApplication() {
    static int count = 1;
    static char name[] = "tests";
    static char* arguments[] = {name, nullptr};
    if (QCoreApplication::instance() == nullptr)
        new QCoreApplication(count, arguments);
}

} // namespace

CtlResult CKuvelctl::Run(const QString& arguments) const {
    return RunBare(QStringList{QStringLiteral("--home"), m_home} + arguments.split(u' ', Qt::SkipEmptyParts));
}

CtlResult CKuvelctl::RunBare(const QStringList& arguments) const {
    NeedApplication();
    QProcess process;
    Prepare(process, arguments);
    return Finish(process);
}

void CKuvelctl::Prepare(QProcess& process, const QStringList& arguments) const {
    NeedApplication();
    QProcessEnvironment environment;
    for (const char* kept : {"PATH", "HOME", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
        if (qEnvironmentVariableIsSet(kept))
            environment.insert(QString::fromLatin1(kept), qEnvironmentVariable(kept));
    for (const QString& variable : m_variables)
        environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    if (m_diskBytes >= 0) {
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(KUVEL_FULL_DISK));
        environment.insert(QStringLiteral("KUVEL_DISK_BYTES"), QString::number(m_diskBytes));
        environment.insert(QStringLiteral("ASAN_OPTIONS"),
                           qEnvironmentVariable("ASAN_OPTIONS") + QStringLiteral(":verify_asan_link_order=0"));
    }
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_home);
    process.setProgram(QStringLiteral(KUVEL_BIN_DIR "/kuvelctl"));
    process.setArguments(arguments);
}

CtlResult CKuvelctl::Finish(QProcess& process, const QByteArray& input) {
    process.start();
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60'000)) << process.errorString().toStdString();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}
