#include "core/import/wak/OleDbString.h"

#include "core/base/SqlText.h"

namespace {

/// One pair of a connection string; moves `rest` behind it. False when it cannot be read.
bool TakePair(QStringView& rest, QString& name, QString& value) {
    const qsizetype equals = rest.indexOf(u'=');
    if (equals < 0)
        return false;
    name = rest.left(equals).trimmed().toString().toLower();
    rest = rest.mid(equals + 1);
    while (!rest.isEmpty() && rest.front().isSpace())
        rest = rest.mid(1);
    value.clear();
    if (rest.isEmpty() || (rest.front() != u'"' && rest.front() != u'\'')) {
        const qsizetype end = rest.indexOf(u';');
        value = (end < 0 ? rest : rest.left(end)).trimmed().toString();
        rest = end < 0 ? QStringView() : rest.mid(end + 1);
        return !name.isEmpty();
    }
    const QChar quote = rest.front();
    for (rest = rest.mid(1);; rest = rest.mid(1)) {
        if (rest.isEmpty())
            return false;
        if (rest.front() == quote) {
            rest = rest.mid(1);
            if (!rest.startsWith(quote))
                break;
        }
        value += rest.front();
    }
    rest = rest.trimmed();
    if (!rest.isEmpty() && rest.front() != u';')
        return false;
    rest = rest.mid(1);
    return !name.isEmpty();
}

/// In braces only where it must be: the driver ends a value in braces at the first "};" and knows no doubled "}".
QString Attribute(const char* name, const QString& value) {
    const bool plain = value == value.trimmed() && !value.contains(QLatin1Char(';')) && !value.startsWith(u'{');
    return QLatin1String(name) + (plain ? value : QLatin1Char('{') + value + QLatin1Char('}')) + QLatin1Char(';');
}

} // namespace

QString OleDbConnectionString(const LoginData& login) {
    if (login.windows)
        return MessageText("Provider=SQLOLEDB; Data Source=%s; Integrated Security=SSPI; Initial Catalog=%s;",
                           login.server, login.database);
    return MessageText("Provider=SQLOLEDB; Data Source=%s; User ID=\"%s\"; Password=\"%s\"; Initial Catalog=%s;",
                       login.server, login.user, login.password, login.database);
}

std::optional<LoginData> ParseOleDbString(const QString& text) {
    LoginData login;
    QString name;
    QString value;
    for (QStringView rest = QStringView(text).trimmed(); !rest.isEmpty(); rest = rest.trimmed()) {
        if (rest.front() == u';') {
            rest = rest.mid(1);
            continue;
        }
        if (!TakePair(rest, name, value))
            return std::nullopt;
        if (name == u"data source" || name == u"server")
            login.server = value;
        else if (name == u"initial catalog" || name == u"database")
            login.database = value;
        else if (name == u"user id" || name == u"uid")
            login.user = value;
        else if (name == u"password" || name == u"pwd")
            login.password = value;
        else if (name == u"integrated security" || name == u"trusted_connection")
            login.windows =
                value.compare(u"sspi", Qt::CaseInsensitive) == 0 || value.compare(u"yes", Qt::CaseInsensitive) == 0;
    }
    return login;
}

QString RefuseServer(const QString& server) {
    const QString name = server.trimmed().toLower();
    for (const char* const prefix : {"\\\\", "np:", "lpc:", "(localdb)"}) {
        if (name.startsWith(QLatin1String(prefix)))
            return QStringLiteral("Spojení přes pojmenovanou rouru ani sdílenou paměť není podporováno. Zadejte server "
                                  "jako počítač, počítač,port nebo počítač\\instance.");
    }
    return {};
}

std::optional<ServerAddress> ParseServer(const QString& server) {
    QStringView rest = QStringView(server).trimmed();
    if (rest.startsWith(u"tcp:", Qt::CaseInsensitive))
        rest = rest.mid(4);
    ServerAddress address;
    if (const qsizetype comma = rest.indexOf(u','); comma >= 0) {
        bool isNumber = false;
        address.port = rest.mid(comma + 1).trimmed().toInt(&isNumber);
        if (!isNumber || address.port < 1 || address.port > 65535)
            return std::nullopt;
        rest = rest.left(comma);
    }
    if (const qsizetype backslash = rest.indexOf(u'\\'); backslash >= 0) {
        address.instance = rest.mid(backslash + 1).trimmed().toString();
        rest = rest.left(backslash);
    }
    address.host = rest.trimmed().toString();
    if (address.host.isEmpty() || address.host == u"." || address.host.compare(u"(local)", Qt::CaseInsensitive) == 0)
        address.host = QStringLiteral("localhost");
    return address;
}

std::optional<QString> OdbcConnectionString(const LoginData& login, const ServerAddress& address,
                                            const QString& driver) {
    for (const QString& value : {address.host, address.instance, login.database, login.user, login.password}) {
        if (value.contains(QStringLiteral("};")))
            return std::nullopt;
    }
    QString text = QStringLiteral("DRIVER={") + driver + QStringLiteral("};");
    // The driver refuses an instance with a port.
    if (address.port == 0 && !address.instance.isEmpty())
        text += Attribute("SERVER=", address.host + QLatin1Char('\\') + address.instance);
    else
        text += Attribute("SERVER=", address.host) +
                QStringLiteral("PORT=%1;").arg(address.port != 0 ? address.port : 1433);
    text += Attribute("DATABASE=", login.database);
    if (login.windows)
        text += QStringLiteral("Trusted_Connection=Yes;");
    else
        text += Attribute("UID=", login.user) + Attribute("PWD=", login.password);
    return text + QStringLiteral("TDS_Version=7.4;ClientCharset=UTF-8;Encryption=request;APP=Kuvel");
}
