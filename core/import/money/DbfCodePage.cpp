#include "core/import/money/DbfCodePage.h"

#include "core/base/CodePage.h"

#include <QStringDecoder>

#include <algorithm>
#include <memory>

namespace {

constexpr int Windows1250 = 1250;
constexpr int Kamenicky = 895;
constexpr int Latin2 = 88592;
constexpr int Utf8 = 65001;

/// The marks that table headers have, by the code page that they stand for.
int PageOfHeader(int mark) {
    constexpr struct {
        int page;
        std::string_view marks;
    } Rows[] = {
        {437, "\x01\x09\x0B\x0D\x0F\x11\x15\x18\x19\x1B"},
        {850, "\x02\x0A\x0E\x10\x12\x14\x16\x1A\x1D\x25\x37"},
        {852, "\x1F\x22\x23\x40\x64\x87"},
        {1252, "\x03\x58\x59"},
        {1250, "\x57\xC8"},
        {895, "\x68"},
        {865, "\x08\x17\x66"},
        {863, "\x1C\x6C"},
        {860, "\x24"},
        {861, "\x67"},
        {866, "\x26\x65"},
        {737, "\x6A\x86"},
        {857, "\x6B\x88"},
        {932, "\x13\x7B"},
        {936, "\x4D\x7A"},
        {949, "\x4E\x79"},
        {950, "\x4F\x78"},
        {874, "\x50\x7C"},
        {1251, "\xC9"},
        {1253, "\xCB"},
        {1254, "\xCA"},
        {1255, "\x7D"},
        {1256, "\x7E"},
        {1257, "\xCC"},
        {10000, "\x04"},
        {10006, "\x98"},
        {10007, "\x96"},
        {10029, "\x97"},
    };
    for (const auto& row : Rows)
        if (row.marks.find(static_cast<char>(mark)) != std::string_view::npos)
            return row.page;
    return 0;
}

/// "UTF-8", "1250", "ANSI 1250", "OEM 852", "cp852", "ISO 88592" and their like.
int PageOfName(const QString& mark) {
    QString name = mark.toUpper();
    name.remove(u' ').remove(u'-').remove(u'_').remove(u'.');
    if (name.isEmpty() || name == u"ANSI")
        return Windows1250;
    for (const char* prefix : {"ANSI", "OEM", "CP", "WINDOWS", "IBM", "ISO"})
        if (name.startsWith(QLatin1String(prefix)))
            name.remove(0, static_cast<qsizetype>(std::string_view(prefix).size()));
    return name == u"UTF8" ? Utf8 : name.toInt();
}

QByteArray ConverterOfPage(int page) {
    switch (page) {
    case Utf8:
        return "UTF-8";
    case Latin2:
        return "ISO-8859-2";
    case 10000:
        return "macintosh";
    case 10006:
        return "x-mac-greek";
    case 10007:
        return "x-mac-cyrillic";
    case 10029:
        return "x-mac-centraleurroman";
    default:
        break;
    }
    const bool isWindows = page > 1250 || page == 874 || page == 932 || page == 936 || page == 949 || page == 950;
    return (isWindows ? "windows-" : "ibm-") + QByteArray::number(page);
}

} // namespace

std::optional<DbfDecoder> DecoderOfMark(std::string_view mark) {
    constexpr std::string_view Header = "LDID/";
    const QString text = QString::fromLatin1(mark.data(), static_cast<qsizetype>(mark.size())).trimmed();
    const int page = mark.starts_with(Header) ? PageOfHeader(text.mid(static_cast<qsizetype>(Header.size())).toInt())
                                              : PageOfName(text);
    if (page == Windows1250)
        return DecodeWindows1250;
    if (page == Kamenicky)
        return DecodeKamenicky;
    if (page == 0)
        return std::nullopt;
    const auto decoder =
        std::make_shared<QStringDecoder>(ConverterOfPage(page).constData(), QStringConverter::Flag::Stateless);
    if (!decoder->isValid())
        return std::nullopt;
    return [decoder](QByteArrayView bytes) { return QString((*decoder)(bytes)); };
}
