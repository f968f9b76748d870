#pragma once

#include <freexl.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

/// Reads a BIFF workbook without an office, so that a test sees what lies in the file and not what the office that
/// wrote it makes of it. A cell with a formula reads as empty. Raises std::runtime_error for a file it cannot read.
class CXlsFile {
public:
    struct CCell {
        enum class EKind { Empty, Text, Number } kind = EKind::Empty;
        std::string text;
        double number = 0;
    };

    explicit CXlsFile(const std::filesystem::path& path) {
        Require(freexl_open(path.c_str(), &m_handle), path.string());
        unsigned count = 0;
        Require(freexl_get_info(m_handle, FREEXL_BIFF_SHEET_COUNT, &count), "sheet count");
        for (unsigned i = 0; i < count; ++i) {
            const char* name = nullptr;
            Require(freexl_get_worksheet_name(m_handle, static_cast<unsigned short>(i), &name), "sheet name");
            m_sheetNames.emplace_back(name);
        }
    }
    ~CXlsFile() { freexl_close(m_handle); }
    CXlsFile(const CXlsFile&) = delete;
    CXlsFile& operator=(const CXlsFile&) = delete;

    const std::vector<std::string>& SheetNames() const { return m_sheetNames; }

    /// The cell of an address such as "C33" (one letter); empty also outside the sheet's used area.
    CCell Cell(const std::string& sheetName, const std::string& address) const {
        Select(sheetName);
        const unsigned row = static_cast<unsigned>(std::stoul(address.substr(1))) - 1;
        const auto column = static_cast<unsigned short>(address.at(0) - 'A');
        unsigned rows = 0;
        unsigned short columns = 0;
        Require(freexl_worksheet_dimensions(m_handle, &rows, &columns), "dimensions");
        if (row >= rows || column >= columns)
            return {};
        FreeXL_CellValue value;
        Require(freexl_get_cell_value(m_handle, row, column, &value), address);
        switch (value.type) {
        case FREEXL_CELL_NULL:
            return {};
        case FREEXL_CELL_INT:
            return {CCell::EKind::Number, {}, static_cast<double>(value.value.int_value)};
        case FREEXL_CELL_DOUBLE:
            return {CCell::EKind::Number, {}, value.value.double_value};
        default:
            return {CCell::EKind::Text, value.value.text_value, 0};
        }
    }

    std::string Text(const std::string& sheetName, const std::string& address) const {
        return Cell(sheetName, address).text;
    }

private:
    static void Require(int result, const std::string& what) {
        if (result != FREEXL_OK)
            throw std::runtime_error("freexl answered " + std::to_string(result) + " for " + what);
    }

    void Select(const std::string& sheetName) const {
        for (std::size_t i = 0; i < m_sheetNames.size(); ++i)
            if (m_sheetNames[i] == sheetName)
                return Require(freexl_select_active_worksheet(m_handle, static_cast<unsigned short>(i)), sheetName);
        throw std::runtime_error("no sheet " + sheetName);
    }

    const void* m_handle = nullptr;
    std::vector<std::string> m_sheetNames;
};
