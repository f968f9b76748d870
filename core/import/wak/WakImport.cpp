#include "core/import/wak/WakImport.h"

#include "core/base/ComError.h"
#include "core/base/SqlText.h"
#include "core/import/Import.h"

namespace {

constexpr std::int32_t Sale = 2; // "prodejka"

/// Rows already read from the server, under the columns' names.
template <class Interface>
class WakRows : public Interface {
public:
    explicit WakRows(SqlServerRowsPtr rows) : m_rows(std::move(rows)) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(m_rows->get_RecordCount()); }
    bool AtEnd() override { return m_rows->get_EOF(); }
    void MoveNext() override { m_rows->MoveNext(); }

protected:
    Variant Field(std::string_view column) const { return m_rows->get_Collect(column); }
    /// A number that the row cannot do without.
    Variant Key(std::string_view column) const {
        const Variant value = Field(column);
        if (IsNull(value))
            throw ComError("import", std::string(column), ResultCode::TypeMismatch,
                           QStringLiteral("Pole %1 není vyplněno.")
                               .arg(QString::fromUtf8(column.data(), static_cast<qsizetype>(column.size()))));
        return value;
    }

private:
    SqlServerRowsPtr m_rows;
};

class WakProducts : public WakRows<ISourceProducts> {
public:
    using WakRows::WakRows;

    SourceProduct Product() override { return {Key("nPol"), Field("NazPol"), Field("IdePol"), Field("IdeMJ")}; }
};

class WakLines : public WakRows<ISourceLines> {
public:
    using WakRows::WakRows;

    SourceDocumentKey Document() override { return {ToLong(Key("nDoklSkl")), {}}; }
    std::optional<SourceDocument> Header() override {
        if (FormatVariant(Field("IdeTypuDoklSkl")).compare(u"PRO", Qt::CaseInsensitive) != 0)
            return std::nullopt;
        return SourceDocument{Field("IdeDoklSkl"), ToBool(Field("TypStatu")), Sale, Field("DatDoklSkl")};
    }
    SourceLine Line() override {
        return {{Key("nPol"), QStringLiteral("???"), QString(), QString()}, Field("MnoPol"), Field("DatDoklSkl")};
    }
};

} // namespace

CWakSource::CWakSource(const WakOptions& options, const WakDateRange& range,
                       std::unique_ptr<CSqlServerConnection> connection)
    : m_options(options), m_range(range), m_connection(std::move(connection)) {}

CWakSource::~CWakSource() = default;

bool CWakSource::Connect(IProgress& progress) {
    m_alive = [&progress] {
        if (progress.CancelRequested())
            throw ImportCancelled();
    };
    return m_connection->Connect(m_options.server, m_options.database, m_options.user, m_options.password,
                                 m_options.windows, m_alive);
}

SqlServerRowsPtr CWakSource::Open(const std::string& source, CSqlServerConnection::SourceType type,
                                  const std::vector<std::string>& columns) {
    SqlServerRowsPtr rows;
    return m_connection->OpenRecordset(rows, source, type, columns, m_alive) ? rows : nullptr;
}

std::unique_ptr<ISourceProducts> CWakSource::OpenProducts() {
    SqlServerRowsPtr rows =
        Open("SELECT * FROM pol_mj", CSqlServerConnection::SourceType::Text, {"nPol", "NazPol", "IdePol", "IdeMJ"});
    return rows ? std::make_unique<WakProducts>(std::move(rows)) : nullptr;
}

std::unique_ptr<ISourceLines> CWakSource::OpenLines() {
    const DateTime& from = m_range.from;
    const DateTime& to = m_range.to;
    SqlServerRowsPtr rows =
        Open(SqlText("DoklSkl_Pre('%04i%02i%02i', '%04i%02i%02i')", from.Year(), from.Month(), from.Day(), to.Year(),
                     to.Month(), to.Day()),
             CSqlServerConnection::SourceType::StoredProcedure,
             {"nDoklSkl", "IdeTypuDoklSkl", "IdeDoklSkl", "DatDoklSkl", "TypStatu", "nPol", "MnoPol"});
    return rows ? std::make_unique<WakLines>(std::move(rows)) : nullptr;
}
