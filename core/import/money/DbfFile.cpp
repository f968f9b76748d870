#include "core/import/money/DbfFile.h"

#include "core/base/ComError.h"
#include "core/base/SameName.h"
#include "core/import/money/DbfValue.h"

#include <QFile>
#include <QFileInfo>

#include <shapefil.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr int HeaderSize = 32;
constexpr char EndMark = 0x1A;

/// The library makes up names of its own from the one it is given (".dbf", ".DBF", ".cpg"); this is the true one.
thread_local const QString* s_truePath = nullptr;

/// A file as the library reads it: whole and at once, so that records can be read in any order for nothing.
struct ReadFile {
    QByteArray bytes;
    SAOffset at = 0;

    SAOffset Size() const { return static_cast<SAOffset>(bytes.size()); }
};

ReadFile& FileOf(SAFile file) {
    return *reinterpret_cast<ReadFile*>(file);
}

SAFile OpenTrueName(const char* name, const char*) {
    const std::string_view view(name);
    if (view.ends_with(".DBF"))
        return nullptr;
    QFile file(view.ends_with(".dbf") ? *s_truePath : QFile::decodeName(name));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    return reinterpret_cast<SAFile>(new ReadFile{file.readAll()});
}

/// As fread: also what is less than one whole item is copied.
SAOffset Read(void* target, SAOffset size, SAOffset count, SAFile handle) {
    ReadFile& file = FileOf(handle);
    if (size == 0 || file.at >= file.Size())
        return 0;
    const SAOffset length = std::min(count * size, file.Size() - file.at);
    std::memcpy(target, file.bytes.constData() + file.at, length);
    file.at += length;
    return length / size;
}

SAOffset Seek(SAFile handle, SAOffset offset, int from) {
    ReadFile& file = FileOf(handle);
    file.at = from == SEEK_END ? file.Size() + offset : from == SEEK_CUR ? file.at + offset : offset;
    return 0;
}

SAOffset Tell(SAFile handle) {
    return FileOf(handle).at;
}

int Close(SAFile handle) {
    delete &FileOf(handle);
    return 0;
}

int DoNothing(SAFile) {
    return 0;
}

SAOffset RefuseWrite(void*, SAOffset, SAOffset, SAFile) {
    return 0;
}

int RefuseRemove(const char*) {
    return -1;
}

/// What went wrong is told by the answer of the call; nothing is printed.
void Silence(const char*) {}

SAHooks ReadOnlyHooks() {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    hooks.FOpen = OpenTrueName;
    hooks.FRead = Read;
    hooks.FSeek = Seek;
    hooks.FTell = Tell;
    hooks.FFlush = DoNothing;
    hooks.FClose = Close;
    hooks.FWrite = RefuseWrite;
    hooks.Remove = RefuseRemove;
    hooks.Error = Silence;
    return hooks;
}

struct Header {
    unsigned char bytes[HeaderSize];

    std::uint32_t Number(int at, int length) const {
        std::uint32_t number = 0;
        for (int i = length - 1; i >= 0; --i)
            number = number << 8 | bytes[at + i];
        return number;
    }
    std::int64_t Records() const { return Number(4, 4); }
    std::int64_t HeaderLength() const { return Number(8, 2); }
    std::int64_t RecordLength() const { return Number(10, 2); }
    /// dBase III to V and FoxPro; dBase II and 7 lay their fields out otherwise.
    bool IsKnownKind() const {
        constexpr unsigned char Kinds[] = {0x03, 0x30, 0x31, 0x32, 0x43, 0x63, 0x83, 0x8B, 0x8E, 0xCB, 0xF5, 0xFB};
        const bool isEncrypted = bytes[15] != 0;
        return std::find(std::begin(Kinds), std::end(Kinds), bytes[0]) != std::end(Kinds) && !isEncrypted;
    }
};

/// Whether the file holds exactly the records that its header counts; some programs leave a mark or padding behind the
/// last one.
bool SizeAgrees(QFile& file, const Header& header) {
    const std::int64_t end = header.HeaderLength() + header.Records() * header.RecordLength();
    if (file.size() < end)
        return false;
    if (file.size() - end < header.RecordLength())
        return true;
    char next = 0;
    return file.seek(end) && file.getChar(&next) && next != ' ' && next != '*';
}

bool HeaderAgrees(const QString& path, Header& header) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) ||
        file.read(reinterpret_cast<char*>(header.bytes), HeaderSize) != HeaderSize)
        return false;
    return header.IsKnownKind() && header.HeaderLength() > HeaderSize && header.RecordLength() > 1 &&
           header.Records() <= 0x7FFFFFFF && SizeAgrees(file, header);
}

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

struct CDbfFile::Handle {
    DBFHandle dbf;
    ~Handle() { DBFClose(dbf); }
};

CDbfFile::CDbfFile(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}

CDbfFile::~CDbfFile() = default;

std::unique_ptr<CDbfFile> CDbfFile::Open(const QString& path) {
    Header header{};
    if (!HeaderAgrees(path, header))
        return nullptr;
    const QByteArray name = QFile::encodeName(path);
    SAHooks hooks = ReadOnlyHooks();
    s_truePath = &path;
    const DBFHandle dbf = DBFOpenLL(name.constData(), "rb", &hooks);
    s_truePath = nullptr;
    if (dbf == nullptr)
        return nullptr;
    std::unique_ptr<CDbfFile> file(new CDbfFile(std::unique_ptr<Handle>(new Handle{dbf})));
    if (!file->ReadFields(dbf->nRecordLength) || !file->FindLiveRecords(DBFGetRecordCount(dbf)))
        return nullptr;
    file->m_path = path;
    file->m_kind = header.bytes[0];
    file->ChooseCodePage();
    return file;
}

bool CDbfFile::ReadFields(int recordLength) {
    int end = 1; // the mark of a deleted record comes first
    for (int i = 0; i < DBFGetFieldCount(m_handle->dbf); ++i) {
        char name[XBASE_FLDNAME_LEN_READ + 1] = {};
        int width = 0;
        int decimals = 0;
        DBFGetFieldInfo(m_handle->dbf, i, name, &width, &decimals);
        const char type = Upper(DBFGetNativeFieldType(m_handle->dbf, i));
        if (width < 1)
            return false;
        m_fields.push_back({name, type, end, width, decimals});
        end += width;
    }
    return !m_fields.empty() && end == recordLength;
}

bool CDbfFile::FindLiveRecords(int records) {
    m_live.reserve(static_cast<std::size_t>(records));
    for (int i = 0; i < records; ++i) {
        const char* record = DBFReadTuple(m_handle->dbf, i);
        if (record == nullptr || *record == EndMark)
            return false;
        if (*record != '*')
            m_live.push_back(static_cast<std::uint32_t>(i));
    }
    return true;
}

void CDbfFile::ChooseCodePage() {
    const char* const mark = DBFGetCodePage(m_handle->dbf);
    std::optional<DbfDecoder> decoder = DecoderOfMark(mark != nullptr ? mark : "");
    if (!decoder)
        throw ComError("dbf", m_path.toStdString(), ResultCode::Fail,
                       QStringLiteral("Tabulka \"%1\" je v kódové stránce, kterou program nezná (%2).")
                           .arg(m_path, QString::fromLatin1(mark)));
    m_decoder = *std::move(decoder);
}

const DbfField& CDbfFile::Field(std::string_view name) const {
    for (const DbfField& field : m_fields)
        if (SameName(field.name, name))
            return field;
    throw ComError("dbf", std::string(name), ResultCode::NoSuchField,
                   QStringLiteral("Pole \"%1\" v tabulce není.").arg(QString::fromUtf8(name)));
}

QString CDbfFile::Text(std::string_view bytes) const {
    return m_decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

std::optional<Variant> CDbfFile::MemoText(std::string_view pointer) const {
    const std::optional<std::uint32_t> block = dbf::ReadMemoBlock(pointer);
    if (!block)
        return std::nullopt;
    if (*block == 0)
        return Variant();
    if (!m_memo)
        m_memo = CDbfMemo::Beside(m_path, m_kind);
    const std::optional<QByteArray> text = m_memo ? m_memo->Text(*block) : std::nullopt;
    return text ? std::optional<Variant>(Text(dbf::WithoutTail({text->constData(), std::size_t(text->size())})))
                : std::nullopt;
}

SourcePlace CDbfFile::Place(std::size_t row, const DbfField& field) const {
    return {QFileInfo(m_path).fileName(), RecordNumber(row), {}, QString::fromStdString(field.name)};
}

Variant CDbfFile::Value(std::size_t row, const DbfField& field) const {
    if (row >= m_live.size())
        throw ComError("dbf", field.name, ResultCode::AtEnd, QStringLiteral("Žádný záznam není aktuální."));
    const char* record = DBFReadTuple(m_handle->dbf, static_cast<int>(m_live[row]));
    if (record == nullptr)
        throw ComError("dbf", field.name, ResultCode::Corrupt, QStringLiteral("Záznam tabulky nelze přečíst."));
    const std::string_view bytes(record + field.offset, static_cast<std::size_t>(field.width));
    if (field.type == 'C')
        return Text(dbf::WithoutTail(bytes));
    if (std::optional<Variant> value = field.type == 'M' ? MemoText(bytes) : dbf::ReadValue(field.type, bytes))
        return *std::move(value);
    throw UnreadableValue(Place(row, field), dbf::ShownBytes(field.type, bytes));
}
