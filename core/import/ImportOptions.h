#pragma once

#include "core/base/Profile.h"

/// What is done with a record that an earlier import brought in; the settings hold the number.
enum class ExistingRecords { Overwrite = 0, Keep = 1, Ask = 2 };

/// What both imports are told: the settings "Produkty", "Vydaje" and "Existujici zaznamy" of the import's section.
struct ImportOptions {
    bool products = true;
    bool documents = true;
    ExistingRecords existing = ExistingRecords::Keep;

    /// From `kuvel.ini`. A policy that is none of the three reads as the default.
    void Read(const QString& section);
    /// What stands in the settings for them.
    CProfile::Entries Entries() const;
};

/// The settings of the Money S3 import, section "Import".
struct MoneyOptions : ImportOptions {
    /// Whether an issue is an export is set from the address's country.
    bool setExport = true;
    /// Names of domestic countries, separated by semicolons; a lone semicolon stands for a country left empty. The
    /// document phase turns the text to upper case, and so it is saved.
    QString domestic = QStringLiteral(";Česká republika ;ČR");
    /// The folder of the year that was chosen last; empty before the first choice.
    QString lastYear;

    void Read();
    /// In one write; answers why it could not be done.
    [[nodiscard]] std::error_code Write() const;
};
