#include "tests/support/MemoryMoneyTable.h"

#include "core/base/ComError.h"

#include <QFileInfo>

#include <algorithm>

namespace {

class Table : public IMoneyTable {
public:
    explicit Table(MemoryMoney& money) : m_money(money) {}

    bool Open(const QString& path) override {
        m_name = QFileInfo(path).fileName();
        m_money.calls.push_back(m_name.toStdString() + " open");
        m_table = m_money.tables.contains(m_name) ? &m_money.tables[m_name] : nullptr;
        m_row = 0;
        return m_table != nullptr;
    }
    void Close() override { m_table = nullptr; }
    std::int32_t RecordCount() override { return static_cast<std::int32_t>(m_table->rows.size()); }
    bool AtEnd() override { return m_row >= m_table->rows.size(); }
    void MoveFirst() override { m_row = 0; }
    void MoveNext() override { ++m_row; }
    Variant FieldValue(std::string_view column) override {
        if (m_money.onRead)
            m_money.onRead(m_name, column);
        return m_table->rows.at(m_row).at(Column(column));
    }
    std::int64_t RecordNumber() override { return static_cast<std::int64_t>(m_row) + 1; }
    int SeekKey(const Variant& key) override { return SeekKeys({key}); }
    /// The rows of a test stand in the order of their index.
    int SeekKeys(const std::vector<Variant>& keys) override {
        const auto same = [&](const std::vector<Variant>& row) {
            return std::equal(keys.begin(), keys.end(), row.begin(),
                              [](const Variant& a, const Variant& b) { return FormatVariant(a) == FormatVariant(b); });
        };
        const auto found = std::find_if(m_table->rows.begin(), m_table->rows.end(), same);
        if (found == m_table->rows.end())
            return 4;
        m_row = static_cast<std::size_t>(found - m_table->rows.begin());
        return Found;
    }
    void SetCurrentIndex(std::string_view expression) override {
        m_money.calls.push_back(m_name.toStdString() + " index " + std::string(expression));
    }

private:
    std::size_t Column(std::string_view name) const {
        const auto found = std::find(m_table->columns.begin(), m_table->columns.end(), name);
        if (found == m_table->columns.end())
            throw ComError("test", std::string(name), ResultCode::NoSuchField, QStringLiteral("Není."));
        return static_cast<std::size_t>(found - m_table->columns.begin());
    }

    MemoryMoney& m_money;
    QString m_name;
    MemoryTable* m_table = nullptr;
    std::size_t m_row = 0;
};

} // namespace

MemoryMoney::MemoryMoney()
    : m_use(MoneyTableDoor(), [this]() -> MoneyTablePtr {
          if (objects == 0)
              throw ComError("create", {}, 0x80040154, refusal);
          --objects;
          return std::make_unique<Table>(*this);
      }) {}
