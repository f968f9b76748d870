#pragma once

#include <QString>

/// What an error of the server or of the driver means for the user of an import, and what to do; empty for one that is
/// not known.
QString MeaningOf(const QString& sqlState, int native);
