#pragma once

#include <QString>

#include <cstdint>
#include <exception>
#include <string>

/// The one error that the store, the spreadsheet and the import sources raise.
class ComError : public std::exception {
public:
    /// `operation` names what was tried (English, for the log), `text` is the SQL or file concerned, `code` the
    /// result code shown to the user, `description` the text shown to the user.
    ComError(std::string operation, std::string text, std::uint32_t code, const QString& description);

    const std::string& Operation() const { return m_operation; }
    const std::string& Text() const { return m_text; }
    std::uint32_t Code() const { return m_code; }
    const QString& Description() const { return m_description; }
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    std::string m_operation;
    std::string m_text;
    std::uint32_t m_code;
    QString m_description;
    std::string m_what;
};

/// Result codes, as Windows publishes them.
namespace ResultCode {
inline constexpr std::uint32_t Fail = 0x80004005;
inline constexpr std::uint32_t OutOfMemory = 0x8007000E;
inline constexpr std::uint32_t ErrorsInCommand = 0x80040E14; // DB_E_ERRORSINCOMMAND
inline constexpr std::uint32_t NoCurrentRecord = 0x80040E23; // DB_E_DELETEDROW
inline constexpr std::uint32_t NoSuchField = 0x800A0CC1;     // adErrItemNotFound
inline constexpr std::uint32_t ObjectClosed = 0x800A0E78;    // adErrObjectClosed
inline constexpr std::uint32_t AtEnd = 0x800A0BCD;           // adErrNoCurrentRecord
inline constexpr std::uint32_t TypeMismatch = 0x80020005;    // DISP_E_TYPEMISMATCH
inline constexpr std::uint32_t Overflow = 0x8002000A;        // DISP_E_OVERFLOW
inline constexpr std::uint32_t DiskFull = 0x80070070;        // ERROR_DISK_FULL
inline constexpr std::uint32_t WriteProtected = 0x80070013;  // ERROR_WRITE_PROTECT
inline constexpr std::uint32_t Locked = 0x80070021;          // ERROR_LOCK_VIOLATION
inline constexpr std::uint32_t Corrupt = 0x80070570;         // ERROR_FILE_CORRUPT
} // namespace ResultCode
