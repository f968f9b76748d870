#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

struct CtlResult {
    int exitCode = -1;
    QString output;
    QString errors;
};

/// The real command-line program as a child, in the folder `home`, with a bare environment.
class CKuvelctl {
public:
    explicit CKuvelctl(QString home) : m_home(std::move(home)) {}

    /// The arguments are those after "--home HOME", separated by blanks.
    CtlResult Run(const QString& arguments) const;
    /// Without "--home" unless the arguments have it; in the folder `home` as current one.
    CtlResult RunBare(const QStringList& arguments) const;

    /// Before `Run`: the disk is full after so many bytes.
    void FillDiskAfter(long long bytes) { m_diskBytes = bytes; }
    void SetVariable(const QString& name, const QString& value) { m_variables << name + u'=' + value; }

    /// A process set up as `Run` does, not yet started.
    void Prepare(QProcess& process, const QStringList& arguments) const;
    /// Starts it, gives it the input and waits for the end.
    static CtlResult Finish(QProcess& process, const QByteArray& input = {});

private:
    QString m_home;
    QStringList m_variables;
    long long m_diskBytes = -1;
};
