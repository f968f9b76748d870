#include "core/base/ComError.h"
#include "core/import/money/DbfTable.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

/// A table of any bytes: it is refused, or every field of every record can be asked for and ordered by.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const int file = memfd_create("dbf", 0);
    if (file < 0 || ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != static_cast<ssize_t>(size))
        std::abort();

    CDbfTable table;
    try {
        if (!table.Open(QStringLiteral("/proc/self/fd/%1").arg(file)))
            return 0;
    } catch (const ComError&) {
        return 0; // a code page that is not known
    }
    // The names as the header has them, eleven bytes at most.
    for (std::size_t at = 32; at + 32 <= size && data[at] != 0x0D; at += 32) {
        const char* text = reinterpret_cast<const char*>(data + at);
        const std::string name(text, strnlen(text, 11));
        try {
            for (table.MoveFirst(); !table.AtEnd(); table.MoveNext())
                table.FieldValue(name);
        } catch (const ComError&) {
            // What cannot be read is said so.
        }
        try {
            table.SetCurrentIndex(name);
            std::int32_t rows = 0;
            for (; !table.AtEnd(); table.MoveNext())
                ++rows;
            if (rows != table.RecordCount())
                std::abort();
            table.MoveFirst();
            if (rows > 0 && table.SeekKey(table.FieldValue(name)) != IMoneyTable::Found)
                std::abort();
        } catch (const ComError&) {
        }
    }
    return 0;
}
