#include "core/report/office/OfficeWorksheet.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/table/CellContentType.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/util/CellProtection.hpp>

#include <QLocale>
#include <QRegularExpression>

#include <optional>
#include <utility>

namespace {

struct Position {
    sal_Int32 column;
    sal_Int32 row;
};

/// "D11" or "D11:D11", within the 256 columns and 65,536 rows that the file format holds.
std::optional<Position> ParseAddress(const QString& range) {
    static const QRegularExpression form("^([A-Z]{1,2})([1-9][0-9]{0,4})(?::\\1\\2)?$");
    const auto match = form.match(range);
    if (!match.hasMatch())
        return std::nullopt;
    sal_Int32 column = 0;
    for (QChar letter : match.captured(1))
        column = column * 26 + (letter.unicode() - 'A' + 1);
    const sal_Int32 row = match.captured(2).toInt();
    if (column > 256 || row > 65536)
        return std::nullopt;
    return Position{column - 1, row - 1};
}

/// The double nearest to the value, whose shortest decimal notation therefore is the value (up to the fifteen digits
/// that a spreadsheet's number has).
double ToDouble(Currency value) {
    return static_cast<double>(value.count) / Currency::One;
}

QString TextOf(const css::uno::Reference<css::table::XCell>& cell) {
    sal_Int32 result = css::sheet::FormulaResult::STRING;
    switch (cell->getType()) {
    case css::table::CellContentType_EMPTY:
        return {};
    case css::table::CellContentType_VALUE:
        result = css::sheet::FormulaResult::VALUE;
        break;
    case css::table::CellContentType_FORMULA:
        css::uno::Reference<css::beans::XPropertySet>(cell, css::uno::UNO_QUERY_THROW)
            ->getPropertyValue("FormulaResultType2") >>= result;
        break;
    default:
        break;
    }
    if (result == css::sheet::FormulaResult::VALUE)
        return QString::number(cell->getValue(), 'f', QLocale::FloatingPointShortest);
    return FromOffice(css::uno::Reference<css::text::XText>(cell, css::uno::UNO_QUERY_THROW)->getString());
}

} // namespace

COfficeWorksheet::COfficeWorksheet(std::shared_ptr<COfficeConnection> connection,
                                   const css::uno::Reference<css::sheet::XSpreadsheet>& sheet,
                                   const css::uno::Reference<css::sheet::XSpreadsheetView>& view, bool isProtected)
    : m_connection(std::move(connection)), m_sheet(sheet), m_view(view), m_isProtected(isProtected) {}

void COfficeWorksheet::Activate() {
    m_connection->Call("Activate", {}, QStringLiteral("List nelze zobrazit."), [&] {
        if (m_view.is())
            m_view->setActiveSheet(m_sheet);
    });
}

QString COfficeWorksheet::GetText(const QString& range) {
    return m_connection->Call("GetText", range, QString("Buňku %1 nelze přečíst.").arg(range), [&] {
        const Cell cell = CellAt(range);
        if (cell->getError() != 0)
            throw ComError("GetText", range.toStdString(), ResultCode::TypeMismatch,
                           QString("Buňka %1 obsahuje chybovou hodnotu.").arg(range));
        return TextOf(cell);
    });
}

void COfficeWorksheet::SetText(const QString& range, const QString& text) {
    constexpr qsizetype longest = 32767; // the file format cuts off what is longer
    if (text.size() > longest)
        throw ComError("SetText", range.toStdString(), ResultCode::Fail,
                       QString("Text pro buňku %1 je příliš dlouhý.").arg(range));
    Write(range, [&](const Cell& cell) {
        css::uno::Reference<css::text::XText>(cell, css::uno::UNO_QUERY_THROW)->setString(ToOffice(text));
    });
}

void COfficeWorksheet::SetInteger(const QString& range, std::int32_t value) {
    Write(range, [&](const Cell& cell) { cell->setValue(value); });
}

void COfficeWorksheet::SetCurrency(const QString& range, Currency value) {
    if (value.status == ValueStatus::Null)
        return SetText(range, {});
    if (!value.IsValid())
        throw ComError("SetCurrency", range.toStdString(), ResultCode::TypeMismatch,
                       QString("Hodnota pro buňku %1 je neplatná.").arg(range));
    Write(range, [&](const Cell& cell) { cell->setValue(ToDouble(value)); });
}

COfficeWorksheet::Cell COfficeWorksheet::CellAt(const QString& range) {
    const auto position = ParseAddress(range);
    if (!position)
        throw ComError("Range", range.toStdString(), OfficeResult::BadIndex,
                       QString("Neplatná adresa buňky \"%1\".").arg(range));
    return m_sheet->getCellByPosition(position->column, position->row);
}

void COfficeWorksheet::Write(const QString& range, const std::function<void(const Cell&)>& write) {
    const QString failure = QString("Do buňky %1 nelze zapsat.").arg(range);
    m_connection->Call("Write", range, failure, [&] {
        const Cell cell = CellAt(range);
        if (m_isProtected) {
            // The office itself lets a program write into locked cells, over the form's own formulas.
            css::util::CellProtection protection;
            css::uno::Reference<css::beans::XPropertySet>(cell, css::uno::UNO_QUERY_THROW)
                ->getPropertyValue("CellProtection") >>= protection;
            if (protection.IsLocked)
                throw ComError("Write", range.toStdString(), ResultCode::Fail,
                               failure + QStringLiteral("\nBuňka je zamčená."));
        }
        write(cell);
    });
}
