#include "core/import/wak/WakImport.h"

#include "core/base/SqlText.h"
#include "core/import/Import.h"
#include "core/import/SourceValue.h"

namespace {

constexpr std::int32_t Sale = 2; // "prodejka"

/// Rows already read from the server, under the columns' names.
class CWakRecords : public CSourceFields {
public:
    CWakRecords(SqlServerRowsPtr rows, const char* name)
        : CSourceFields(QString::fromLatin1(name)), m_rows(std::move(rows)) {}

    CSqlServerRows& Rows() const { return *m_rows; }

protected:
    Variant Read(std::string_view field) const override { return m_rows->get_Collect(field); }
    std::int64_t Record() const override { return m_rows->Position(); }

private:
    SqlServerRowsPtr m_rows;
};

template <class Interface>
class WakRows : public Interface {
public:
    WakRows(SqlServerRowsPtr rows, const char* name) : m_records(std::move(rows), name) {}

    std::int32_t Count() override { return static_cast<std::int32_t>(m_records.Rows().get_RecordCount()); }
    bool AtEnd() override { return m_records.Rows().get_EOF(); }
    void MoveNext() override { m_records.Rows().MoveNext(); }

protected:
    CWakRecords m_records;
};

class WakProducts : public WakRows<ISourceProducts> {
public:
    using WakRows::WakRows;

    SourceProduct Product() override {
        return {m_records.Key("nPol"), m_records.Text("NazPol"), m_records.Text("IdePol"), m_records.Text("IdeMJ")};
    }
};

class WakLines : public WakRows<ISourceLines> {
public:
    using WakRows::WakRows;

    SourceDocumentKey Document() override {
        m_records.SetDocument({});
        return {m_records.Whole("nDoklSkl"), {}};
    }
    std::optional<SourceDocument> Header() override {
        m_records.SetDocument({});
        if (FormatVariant(m_records.Text("IdeTypuDoklSkl")).compare(u"PRO", Qt::CaseInsensitive) != 0)
            return std::nullopt;
        m_number = FormatVariant(m_records.Text("IdeDoklSkl"));
        m_records.SetDocument(m_number);
        return SourceDocument{m_number, m_records.Flag("TypStatu"), Sale, m_records.Date("DatDoklSkl")};
    }
    SourceLine Line() override {
        m_records.SetDocument(m_number);
        return {{m_records.Key("nPol"), QStringLiteral("???"), QString(), QString()},
                m_records.Quantity("MnoPol"),
                m_records.Date("DatDoklSkl")};
    }

private:
    QString m_number;
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
    return rows ? std::make_unique<WakProducts>(std::move(rows), "pol_mj") : nullptr;
}

std::unique_ptr<ISourceLines> CWakSource::OpenLines() {
    const DateTime& from = m_range.from;
    const DateTime& to = m_range.to;
    SqlServerRowsPtr rows =
        Open(SqlText("DoklSkl_Pre('%04i%02i%02i', '%04i%02i%02i')", from.Year(), from.Month(), from.Day(), to.Year(),
                     to.Month(), to.Day()),
             CSqlServerConnection::SourceType::StoredProcedure,
             {"nDoklSkl", "IdeTypuDoklSkl", "IdeDoklSkl", "DatDoklSkl", "TypStatu", "nPol", "MnoPol"});
    return rows ? std::make_unique<WakLines>(std::move(rows), "DoklSkl_Pre") : nullptr;
}
