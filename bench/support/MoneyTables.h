#pragma once

#include <QString>

/// The four tables of one year of an accounting system, as dBase files in one folder: stock cards, and lines of
/// documents and invoices in no order, five to a document, three documents in four being no invoice.
void WriteMoneyTables(const QString& folder, int cards, int documents, int lines);
