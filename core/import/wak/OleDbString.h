#pragma once

#include <QString>

#include <optional>

/// Where and how to log in, as a connection string says it.
struct LoginData {
    QString server;
    QString database;
    QString user;
    QString password;
    bool windows = false;
};

/// The connection string of the import, the values inserted as they stand.
QString OleDbConnectionString(const LoginData& login);

/// Reads a connection string as its provider does: names in any case, blanks around a value dropped, the last of equal
/// names counts, a value in quotes ends at the next quote that is not doubled, and after it only ';' may follow.
///
/// Since nothing was escaped when the string was made, a password with ';', '}' or an apostrophe arrives whole, one
/// with a double quote does not: `a"b` is a string that cannot be read (nothing), `a""b` is the password `a"b`. So a
/// user whose password has a double quote enters it doubled. What follows a `";` inside it is read as further names.
std::optional<LoginData> ParseOleDbString(const QString& text);

/// A server as it is entered: "host", "host,port", "host\instance", "." or "(local)" (also before a backslash or a
/// comma) for this machine, "tcp:" before any of them.
struct ServerAddress {
    QString host;
    QString instance;
    /// 0 when none was given. With a port the instance is not looked up.
    int port = 0;
};

/// Why the server cannot be spoken to, for one that is entered as a pipe, as shared memory or as a local instance of a
/// user; empty for one that may be reached over the network.
QString RefuseServer(const QString& server);

/// Nothing for a port that is no port.
std::optional<ServerAddress> ParseServer(const QString& server);

/// The same login for the driver of this name or path. Nothing when a value holds "};", which ends a value for the
/// driver even in braces: part of a password must not log in, nor the rest of it set something else.
std::optional<QString> OdbcConnectionString(const LoginData& login, const ServerAddress& address,
                                            const QString& driver);
