#pragma once

#include "core/base/Currency.h"

#include <QString>

#include <vector>

class CDataStore;
class IProgress;

struct FigureCell {
    QString sheet; // "1-1"
    QString cell;  // "C33"
    Currency tonnes;
};

/// The cells that a report of this period writes into its figure sheets, sheet by sheet, each by rows, then columns.
/// `versionText` is read like the template's cell A1 and sets `TemplateVersion`. Raises ComError.
std::vector<FigureCell> ListFigures(CDataStore& store, IProgress& progress, int year, int quarter,
                                    const QString& versionText);
