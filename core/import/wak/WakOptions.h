#pragma once

#include "core/base/DateTime.h"
#include "core/import/ImportOptions.h"

#include <optional>

/// The settings of the WAK INTRA import, section "ImportWAK". The password is in clear here and nowhere else.
struct WakOptions : ImportOptions {
    QString server = QStringLiteral("(local)");
    QString database;
    bool windows = false;
    QString user = QStringLiteral("sa");
    QString password;
    /// Otherwise none is written, and one that was stored goes.
    bool storePassword = true;

    void Read();
    /// In one write; answers why it could not be done.
    [[nodiscard]] std::error_code Write() const;
};

/// The days whose documents are imported: from 00:00:00 of the first to 23:59:59 of the last.
struct WakDateRange {
    DateTime from;
    DateTime to;

    /// The calendar quarter before the one that the day is in.
    static WakDateRange PreviousQuarter(const DateTime& today);
};

/// What is wrong with the connection page, and where.
struct WakComplaint {
    enum class Field { Server, Database, User };

    QString text;
    Field field;
};

/// What will not arrive as it was typed: a double quote, and what is not stored of a long password. Empty without any.
QString WakPasswordNote(const WakOptions& options);
/// Trims server and database, and for a SQL Server login the user, up to the first that is empty.
std::optional<WakComplaint> CheckWakConnection(WakOptions& options);
/// What is wrong with the parameter page. Sets the range's times of day when documents are imported.
std::optional<QString> CheckWakParameters(const ImportOptions& options, WakDateRange& range);
