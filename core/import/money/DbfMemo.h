#pragma once

#include <QByteArray>
#include <QFile>

#include <cstdint>
#include <memory>
#include <optional>

/// The file beside a table that holds the texts of its memo fields: NAME.DBT of dBase III and IV, NAME.FPT of FoxPro.
class CDbfMemo {
public:
    /// The file that belongs to the table of this path and kind (the first byte of its header), in any case; none when
    /// there is no such file or it is none.
    static std::unique_ptr<CDbfMemo> Beside(const QString& tablePath, unsigned char kind);

    /// The bytes of the text that begins at this block. None when there is no such block, when it holds no text, or
    /// when the text does not end in the file.
    std::optional<QByteArray> Text(std::uint32_t block);

private:
    enum class Form { DBase, FoxPro };

    CDbfMemo(const QString& path, Form form) : m_file(path), m_form(form) {}
    bool ReadHeader(unsigned char kind);
    std::optional<QByteArray> Bytes(qint64 from, std::uint32_t length);
    std::optional<QByteArray> UpToMark(qint64 from);

    QFile m_file;
    Form m_form;
    std::uint32_t m_blockSize = 512;
};
