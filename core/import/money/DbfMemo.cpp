#include "core/import/money/DbfMemo.h"

#include "core/import/money/DriveMap.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr unsigned char DBase3 = 0x83;
constexpr char EndOfText = 0x1A;
/// Before the length of a text of dBase IV.
const QByteArray DBase4Mark("\xFF\xFF\x08\x00", 4);
constexpr std::uint32_t FoxProText = 1;
constexpr qint64 BlockHead = 8;

} // namespace

std::unique_ptr<CDbfMemo> CDbfMemo::Beside(const QString& tablePath, unsigned char kind) {
    const QFileInfo table(tablePath);
    const QString folder = table.path() + u'/';
    const bool isFoxPro = kind == 0xF5 || (kind >= 0x30 && kind <= 0x32);
    const std::pair<QString, Form> places[] = {{table.completeBaseName() + QStringLiteral(".DBT"), Form::DBase},
                                               {table.completeBaseName() + QStringLiteral(".FPT"), Form::FoxPro}};
    for (const auto& [name, form] : {places[isFoxPro ? 1 : 0], places[isFoxPro ? 0 : 1]}) {
        const QString path = FindInFolder(folder, name);
        if (!QFileInfo(path).isFile())
            continue;
        std::unique_ptr<CDbfMemo> memo(new CDbfMemo(path, form));
        return memo->ReadHeader(kind) ? std::move(memo) : nullptr;
    }
    return nullptr;
}

bool CDbfMemo::ReadHeader(unsigned char kind) {
    constexpr qint64 Header = 22;
    if (!m_file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = m_file.read(Header);
    if (head.size() < Header)
        return false;
    std::uint32_t size = 0;
    if (m_form == Form::FoxPro)
        size = qFromBigEndian<quint16>(head.constData() + 6);
    else if (kind != DBase3)
        size = qFromLittleEndian<quint16>(head.constData() + 20);
    m_blockSize = size != 0 ? size : m_form == Form::FoxPro ? 1 : m_blockSize;
    return true;
}

std::optional<QByteArray> CDbfMemo::Bytes(qint64 from, std::uint32_t length) {
    if (length > m_file.size() || from > m_file.size() - static_cast<qint64>(length) || !m_file.seek(from))
        return std::nullopt;
    QByteArray bytes = m_file.read(length);
    return bytes.size() == static_cast<qsizetype>(length) ? std::optional(std::move(bytes)) : std::nullopt;
}

std::optional<QByteArray> CDbfMemo::UpToMark(qint64 from) {
    constexpr qint64 Part = 4096;
    QByteArray text;
    for (m_file.seek(from);;) {
        const QByteArray part = m_file.read(Part);
        if (const qsizetype end = part.indexOf(EndOfText); end >= 0)
            return text + part.left(end);
        if (part.isEmpty())
            return std::nullopt;
        text += part;
    }
}

std::optional<QByteArray> CDbfMemo::Text(std::uint32_t block) {
    const qint64 from = static_cast<qint64>(block) * m_blockSize;
    const std::optional<QByteArray> head = Bytes(from, BlockHead);
    if (m_form == Form::FoxPro) {
        if (!head || qFromBigEndian<quint32>(head->constData()) != FoxProText)
            return std::nullopt;
        return Bytes(from + BlockHead, qFromBigEndian<quint32>(head->constData() + 4));
    }
    if (head && head->startsWith(DBase4Mark)) {
        // The length counts the head too.
        const quint32 length = qFromLittleEndian<quint32>(head->constData() + 4);
        return length >= BlockHead ? Bytes(from + BlockHead, length - static_cast<quint32>(BlockHead)) : std::nullopt;
    }
    std::optional<QByteArray> text = UpToMark(from);
    // Where the editor of dBase broke a line by itself, no break was meant.
    return text ? std::optional(text->replace("\x8D\n", " ")) : std::nullopt;
}
