#include "core/import/SourceValue.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

namespace {

/// One field of a record, whatever its name.
class OneValue : public CSourceFields {
public:
    explicit OneValue(Variant value) : CSourceFields(QStringLiteral("T")), m_value(std::move(value)) {}

protected:
    Variant Read(std::string_view) const override { return m_value; }
    std::int64_t Record() const override { return 7; }

private:
    Variant m_value;
};

/// What it reads or, after "!", the value that its error names.
std::string Read(const std::function<Variant()>& read) {
    try {
        return Shown(read());
    } catch (const UnreadableValue& error) {
        EXPECT_TRUE(error.Description().startsWith(QStringLiteral("Tabulka \"T\", záznam 7, pole \"F\": ")));
        EXPECT_EQ(ResultCode::TypeMismatch, error.Code());
        return "!" + error.Value().toStdString();
    }
}

TEST(SourceValue, IsReadWholeOrRefused) {
    const QString text = QStringLiteral(" 12,5 ");
    const Variant day = DateTime::FromDay(2023, 10, 5, 14, 0, 0);
    const struct {
        Variant value;
        const char* key;
        const char* text;
        const char* quantity;
        const char* date;
        const char* flag;
    } rows[] = {
        {Variant(), "!", "null", "no currency", "#null#", "ne"},
        {QString(), "!", "''", "no currency", "#null#", "ne"},
        {QStringLiteral("  "), "!  ", "'  '", "no currency", "#null#", "ne"},
        {5, "5", "'5'", "5,0000", "?", "ano"},
        {0, "0", "'0'", "0,0000", "?", "ne"},
        {-5, "-5", "'-5'", "-5,0000", "?", "ano"},
        {true, "?", "'ano'", "?", "?", "ano"},
        {text, "! 12,5 ", "' 12,5 '", "12,5000", "! 12,5 ", "ano"},
        {QStringLiteral("2147483648"), "!2147483648", "'2147483648'", "2147483648,0000", "!2147483648", "ano"},
        {QStringLiteral(" 12 "), "12", "' 12 '", "12,0000", "! 12 ", "ano"},
        {QStringLiteral("abc"), "!abc", "'abc'", "!abc", "!abc", "!abc"},
        {QStringLiteral("True"), "!True", "'True'", "!True", "!True", "ano"},
        {1e30, "!1e+30", "?", "!1e+30", "!1e+30", "ano"},
        {1.5, "!1.5", "'1.50'", "1,5000", "?", "ano"},
        {Currency::FromCount(15000), "!1,5", "'1,50'", "1,5000", "?", "ano"},
        {Currency::FromWhole(13), "13", "'13,00'", "13,0000", "?", "ano"},
        {day, "?", "'05.10.2023'", "?", "#2023-10-05 14:00:00#", "?"},
        {QStringLiteral("20231005"), "20231005", "'20231005'", "20231005,0000", "#2023-10-05 00:00:00#", "ano"},
        {QStringLiteral("2023-10-05T14:00:00.123"), "?", "?", "?", "#2023-10-05 14:00:00#", "?"},
        {QStringLiteral("2023-02-30"), "?", "?", "?", "!2023-02-30", "?"},
    };
    for (const auto& row : rows) {
        const OneValue fields(row.value);
        const std::pair<const char*, std::function<Variant()>> reads[] = {
            {row.key, [&] { return Variant(fields.Key("F")); }},
            {row.text, [&] { return fields.Text("F"); }},
            {row.quantity, [&] { return Variant(fields.Quantity("F")); }},
            {row.date, [&] { return Variant(fields.Date("F")); }},
            {row.flag, [&] { return Variant(fields.Flag("F")); }},
        };
        for (const auto& [expected, read] : reads) {
            if (std::string_view(expected) != "?") {
                EXPECT_EQ(expected, Read(read)) << Shown(row.value) << " " << &expected - &reads[0].first;
            }
        }
    }
    EXPECT_EQ(0, OneValue(Variant()).Key("F", 0));
    EXPECT_EQ(9999999999, OneValue(QStringLiteral("9999999999")).Whole("F"));
}

TEST(SourceValue, AnErrorNamesItsPlace) {
    const std::tuple<Variant, const char*, const char*> cases[] = {
        {Variant(), "", "Tabulka \"T\", záznam 7, pole \"F\": není vyplněno."},
        {QStringLiteral("x"), "F1", "Tabulka \"T\", záznam 7, doklad \"F1\", pole \"F\": hodnotu \"x\" nelze přečíst."},
    };
    for (const auto& [value, document, description] : cases) {
        OneValue fields(value);
        fields.SetDocument(QString::fromUtf8(document));
        try {
            fields.Key("F");
            ADD_FAILURE() << description;
        } catch (const ComError& error) {
            EXPECT_EQ(description, error.Description().toStdString());
        }
    }
}

} // namespace
