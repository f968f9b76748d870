// Dates, numbers and names as users type and paste them.

#include "core/base/TypedText.h"
#include "core/base/TextField.h"

#include <gtest/gtest.h>

namespace {

TEST(TypedText, ADateIsReadAsAWholeOrRefused) {
    const struct {
        const char* typed;
        const char* read; // the day, or a part of the refusal
    } cases[] = {
        {"15.3.2012", "2012-03-15"},
        {"15. 3. 2012", "2012-03-15"},
        {" 15,03,2012\n", "2012-03-15"},
        {"15/3/12", "2012-03-15"},
        {"15-3-2012", "2012-03-15"},
        {"15 3 2012", "2012-03-15"},
        {"31032012", "2012-03-31"},
        {"290212", "2012-02-29"},
        {"31122023", "2023-12-31"},
        {"2012-03-15", "2012-03-15"},
        {"1.1.49", "2049-01-01"},
        {"1.1.50", "1950-01-01"},
        {"1.1.1900", "1900-01-01"},
        {"31.12.2100", "2100-12-31"},
        {"", "Není zadáno datum!"},
        {"30.2.2012", "únor 2012 má dny od 1 do 29."},
        {"29022011", "únor 2011 má dny od 1 do 28."},
        {"0.5.2012", "květen 2012 má dny od 1 do 31."},
        {"1.13.2012", "měsíc musí být od 1 do 12."},
        {"31.12.1899", "musí být od 1900 do 2100."},
        {"01.01.2101", "musí být od 1900 do 2100."},
        {"05032", "nelze přečíst"},
        {"5.3.", "nelze přečíst"},
        {"5.3.2", "nelze přečíst"},
        {"-5.3.2012", "nelze přečíst"},
        {"5.3.20122", "nelze přečíst"},
        {"dnes", "nelze přečíst"},
        {"٣.٣.2012", "nelze přečíst"},
    };
    for (const auto& c : cases) {
        const Typed<DateTime> typed = ReadDate(QString::fromUtf8(c.typed));
        const std::string read = typed.IsRead() ? typed.value.Stored() : typed.refusal.toStdString();
        EXPECT_NE(std::string::npos, read.find(c.read)) << c.typed << ": " << read;
    }
}

TEST(TypedText, ANumberIsReadAsAWholeOrRefused) {
    const struct {
        const char* typed;
        const char* unit;
        const char* read; // with a decimal comma, or a part of the refusal
    } cases[] = {
        {"1234,5", "", "1234,5"},
        {"1 234,5", "", "1234,5"},
        {"1\u00A0234.5", "", "1234,5"},
        {"1.234,5", "", "1234,5"},
        {"1,234.5", "", "1234,5"},
        {"1.234.567", "", "1234567"},
        {"1,234", "", "1,234"},
        {"0.125", "", "0,125"},
        {"12.5", "", "12,5"},
        {",5", "", "0,5"},
        {"5,", "", "5"},
        {"- 7", "", "-7"},
        {"\u22127", "", "-7"},
        {"2.5000 kg", "kg", "2,5"},
        {"3KG\t", "kg", "3"},
        {"123456789012345", "", "123456789012345"},
        {"922337203685477,5807", "", "922337203685477,5807"},
        {"  ", "", ""},
        {"1.234", "", "Zadejte 1,234, nebo 1234."},
        {"-1.234", "", "Zadejte -1,234, nebo -1234."},
        {"922337203685477,5808", "", "mimo rozsah"},
        {"1 234,56789", "", "více než čtyři desetinná místa"},
        {"1e5", "", "nelze přečíst"},
        {"2,5 g", "kg", "nelze přečíst"},
        {"2,5 kg", "", "nelze přečíst"},
        {"1 23", "", "nelze přečíst"},
        {"1,23,4", "", "nelze přečíst"},
        {"1.234,567.8", "", "nelze přečíst"},
        {"kg", "kg", "nelze přečíst"},
        {"-", "", "nelze přečíst"},
        {",", "", "nelze přečíst"},
    };
    for (const auto& c : cases) {
        const Typed<Currency> typed = ReadNumber(QString::fromUtf8(c.typed), QString::fromUtf8(c.unit));
        if (typed.IsRead())
            EXPECT_EQ(c.read, CurrencyText(typed.value).toStdString()) << c.typed;
        else
            EXPECT_TRUE(c.read[0] != '\0' && typed.refusal.contains(QString::fromUtf8(c.read)))
                << c.typed << ": " << typed.refusal.toStdString();
    }
}

TEST(TypedText, WeightsStayWithinACurrency) {
    const Currency most = Currency::FromCount(9223372036854775807);
    EXPECT_TRUE(CurrencyProductFits(most, Currency::FromWhole(1)));
    EXPECT_FALSE(CurrencyProductFits(most, Currency::FromCount(10001)));
    EXPECT_EQ("Hmotnost 99999999999999 ks po 25 kg je mimo rozsah, nejvýše lze zadat 922337203685477,5807 kg.",
              RefuseWeight(Currency::FromWhole(99999999999999), Currency::FromWhole(25)).toStdString());
    EXPECT_EQ("", RefuseWeight(Currency::FromWhole(99999999999999), Currency::FromWhole(9)).toStdString());
    EXPECT_NE("", RefusePieces(Currency::FromWhole(99999999999999), Currency::FromCount(11)).toStdString());
}

TEST(TextField, MakesOneLineAndCutsToTheColumn) {
    EXPECT_EQ("PE folie", TrimmedLine(QStringLiteral(" PE\r\nfolie\t")).toStdString());
    const FittedText fits = FitText("prod_unit", QStringLiteral("1234567890\n"));
    EXPECT_EQ("1234567890", fits.text.toStdString());
    EXPECT_FALSE(fits.wasCut);
    const FittedText cut = FitText("prod_unit", QStringLiteral("123456789\U0001F4E6x"));
    EXPECT_EQ("123456789", cut.text.toStdString()) << "no half of a character";
    EXPECT_TRUE(cut.wasCut);
    EXPECT_FALSE(FitText("unknown", QString(5000, u'x')).wasCut);
}

} // namespace
