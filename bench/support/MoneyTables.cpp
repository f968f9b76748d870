#include "bench/support/MoneyTables.h"

#include "tests/support/MoneyTables.h"

#include <QFile>

#include <cstdio>

namespace {

/// A dBase III file, record by record.
class Table {
public:
    Table(const QString& path, const DbfBytes& table, int records)
        : m_file(std::fopen(QFile::encodeName(path).constData(), "wb")) {
        const QByteArray head = table.Head(static_cast<std::size_t>(records));
        std::fwrite(head.constData(), 1, static_cast<std::size_t>(head.size()), m_file);
    }
    ~Table() {
        std::fputc(0x1A, m_file);
        std::fclose(m_file);
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    std::FILE* File() const { return m_file; }

private:
    std::FILE* m_file;
};

/// A number that has no factor in common with the counts, so that its multiples come by each of them once.
constexpr long Stride = 7919;

} // namespace

void WriteMoneyTables(const QString& folder, int cards, int documents, int lines) {
    {
        const Table table(folder + "/SKKMKART.DAT", StockCards(), cards);
        for (int i = 1; i <= cards; ++i)
            std::fprintf(table.File(),
                         " %10d\xC8"
                         "aj sypan\xFD v plechovce %-17dK-%-18dks        ",
                         i, i, i);
    }
    const int invoices = documents / 4;
    const int others = documents - invoices;
    {
        const Table table(folder + "/SKSEZDOK.DAT", StockDocuments(), others);
        for (int i = 1; i <= others; ++i)
            std::fprintf(table.File(), " %10dS%-9d2012%02d%02d%c%-30s", i, i, 1 + i % 12, 1 + i % 28, "VDP"[i % 3],
                         i % 6 == 0 ? "Slovensko" : "");
    }
    {
        const Table table(folder + "/VFAKTURY.DAT", Invoices(), invoices);
        for (int i = 1; i <= invoices; ++i)
            std::fprintf(table.File(), " %10dF%-9d2012%02d%02d 0F%-30s", i, i, 1 + i % 12, 1 + i % 28,
                         i % 6 == 0 ? "Slovensko" : "");
    }
    const Table table(folder + "/SKSEZPOL.DAT", StockLines(), lines);
    for (long k = 0; k < lines; ++k) {
        const long i = k * Stride % lines;
        const int document = static_cast<int>(i % documents);
        const bool isInvoice = document >= others;
        const int card = static_cast<int>(1 + i * 31 % cards);
        std::fprintf(table.File(),
                     " %c%10d%6ld%10d\xC8"
                     "aj sypan\xFD v plechovce %-17dK-%-18dks        %11ld.%04ld",
                     isInvoice ? 'V' : 'S', isInvoice ? document - others + 1 : document + 1, i / documents, card, card,
                     card, 1 + i % 500, i % 4 * 2500);
    }
}
