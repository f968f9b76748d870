#include "windows/widgets/edits/CurrencyEdit.h"

#include <QRegularExpressionValidator>

#include <algorithm>

CurrencyEdit::CurrencyEdit(QWidget* parent) : QLineEdit(parent) {
    // Fourteen digits before the comma stay within what a currency holds.
    static const QRegularExpression Number(QStringLiteral("\\s*-?(\\d[ \\x{A0}]?){0,14}([.,]\\d{0,4})?\\s*"));
    setValidator(new QRegularExpressionValidator(Number, this));
}

void CurrencyEdit::FocusAll() {
    setFocus();
    selectAll();
}

CurrencySpin::CurrencySpin(QWidget* parent) : QAbstractSpinBox(parent), m_edit(new CurrencyEdit) {
    setLineEdit(m_edit);
}

void CurrencySpin::stepBy(int steps) {
    constexpr std::int64_t Lowest = 1;
    constexpr std::int64_t Highest = 65535;
    const std::int64_t whole = m_edit->Value().count / Currency::One;
    m_edit->SetValue(Currency::FromWhole(std::clamp(whole + steps, Lowest, Highest)));
    m_edit->selectAll();
}

QValidator::State CurrencySpin::validate(QString& input, int& position) const {
    return m_edit->validator()->validate(input, position);
}

QAbstractSpinBox::StepEnabled CurrencySpin::stepEnabled() const {
    return StepUpEnabled | StepDownEnabled;
}

WeightLink::WeightLink(CurrencyEdit& quantity, CurrencyEdit& weight, QObject* parent)
    : QObject(parent), m_quantity(quantity), m_weight(weight) {
    connect(&quantity, &QLineEdit::textEdited, this, &WeightLink::ShowWeight);
    connect(&weight, &QLineEdit::textEdited, this, &WeightLink::ShowQuantity);
}

void WeightLink::SetPieceWeight(Currency weight) {
    m_pieceWeight = weight;
    m_weight.SetValue(CurrencyMul(m_quantity.Value(), m_pieceWeight));
}

void WeightLink::ShowWeight() {
    if (m_pieceWeight.count > 0)
        m_weight.SetValue(CurrencyMul(m_quantity.Value(), m_pieceWeight));
}

void WeightLink::ShowQuantity() {
    if (m_pieceWeight.count > 0)
        m_quantity.SetValue(CurrencyDiv(m_weight.Value(), m_pieceWeight));
}
