#pragma once

#include "core/report/Quarter.h"

#include <QString>

/// "vykaz2011.tpl" in the program folder.
QString YearTemplate(int year);

/// The template for the period in the program folder: that of the quarter, from 2009 on otherwise that of the nearest
/// earlier quarter of the year, otherwise that of the year. Empty when there is none.
QString FindTemplate(Period period);

/// The folder that reports are put into, without a trailing separator.
QString ReportFolder();

/// How many reports can be made in one day.
inline constexpr int NamesOfDay = 99;

struct OutputName {
    QString path;
    /// False when all names of the day are taken: the path is then one that no file has.
    bool isFree = false;
};

/// The first name of the day that no file in the report folder has, whatever its extension.
OutputName NextOutputName(const DateTime& today);

/// False when the target exists already, or when the copy could not be made; then nothing is left of it.
bool CopyToNewFile(const QString& source, const QString& target);
