#pragma once

#include "tests/support/DbfBytes.h"

/// The four tables of the import, with the columns that it reads and none of their rows.
DbfBytes StockCards();
DbfBytes StockDocuments();
DbfBytes StockLines();
DbfBytes Invoices();
