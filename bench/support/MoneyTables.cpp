#include "bench/support/MoneyTables.h"

#include <QFile>

#include <cstdio>
#include <numeric>
#include <vector>

namespace {

struct Column {
    const char* name;
    char type;
    int width;
    int decimals = 0;
};

/// A dBase III file, record by record.
class Table {
public:
    Table(const QString& path, const std::vector<Column>& columns, int records)
        : m_file(std::fopen(QFile::encodeName(path).constData(), "wb")) {
        unsigned char header[32] = {0x03, 112, 1, 1};
        int record = 1;
        for (const Column& column : columns)
            record += column.width;
        const std::size_t length = 32 + 32 * columns.size() + 1;
        for (int i = 0; i < 4; ++i)
            header[4 + i] = static_cast<unsigned char>(records >> (8 * i));
        header[8] = static_cast<unsigned char>(length);
        header[9] = static_cast<unsigned char>(length >> 8);
        header[10] = static_cast<unsigned char>(record);
        std::fwrite(header, 1, sizeof header, m_file);
        for (const Column& column : columns) {
            char field[32] = {};
            std::snprintf(field, 11, "%s", column.name);
            field[11] = column.type;
            field[16] = static_cast<char>(column.width);
            field[17] = static_cast<char>(column.decimals);
            std::fwrite(field, 1, sizeof field, m_file);
        }
        std::fputc('\r', m_file);
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
        const Table table(folder + "/SKKMKART.DAT",
                          {{"Cislo", 'N', 10}, {"Popis", 'C', 40}, {"Katalog", 'C', 20}, {"MJ", 'C', 10}}, cards);
        for (int i = 1; i <= cards; ++i)
            std::fprintf(table.File(),
                         " %10d\xC8"
                         "aj sypan\xFD v plechovce %-17dK-%-18dks        ",
                         i, i, i);
    }
    const int invoices = documents / 4;
    const int others = documents - invoices;
    {
        const Table table(
            folder + "/SKSEZDOK.DAT",
            {{"CDokladu", 'N', 10}, {"CisloDokla", 'C', 10}, {"Datum", 'D', 8}, {"Typ", 'C', 1}, {"A_Stat", 'C', 30}},
            others);
        for (int i = 1; i <= others; ++i)
            std::fprintf(table.File(), " %10dS%-9d2012%02d%02d%c%-30s", i, i, 1 + i % 12, 1 + i % 28, "VDP"[i % 3],
                         i % 6 == 0 ? "Slovensko" : "");
    }
    {
        const Table table(folder + "/VFAKTURY.DAT",
                          {{"Cislo", 'N', 10},
                           {"Doklad", 'C', 10},
                           {"DatSkPoh", 'D', 8},
                           {"Storno", 'N', 2},
                           {"FlagDel", 'L', 1},
                           {"O_Stat", 'C', 30}},
                          invoices);
        for (int i = 1; i <= invoices; ++i)
            std::fprintf(table.File(), " %10dF%-9d2012%02d%02d 0F%-30s", i, i, 1 + i % 12, 1 + i % 28,
                         i % 6 == 0 ? "Slovensko" : "");
    }
    const Table table(folder + "/SKSEZPOL.DAT",
                      {{"TypDokladu", 'C', 1},
                       {"CDokladu", 'N', 10},
                       {"CisloPoloz", 'N', 6},
                       {"CKmenKarty", 'N', 10},
                       {"Nazev", 'C', 40},
                       {"Katalog", 'C', 20},
                       {"MJ", 'C', 10},
                       {"PocetMJ", 'N', 16, 4}},
                      lines);
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
