#include "windows/widgets/edits/CurrencyEdit.h"

#include "core/base/TypedText.h"
#include "windows/widgets/Refuse.h"

#include <QKeyEvent>

#include <algorithm>

Currency CurrencyEdit::Value() const {
    return ReadNumber(text(), m_unit).value;
}

QString CurrencyEdit::Complaint() const {
    return ReadNumber(text(), m_unit).refusal;
}

QString CurrencyEdit::TidyText() const {
    return CurrencyText(Value());
}

void CurrencyEdit::keyPressEvent(QKeyEvent* event) {
    const bool ofKeypad = event->modifiers() & Qt::KeypadModifier;
    if (ofKeypad && event->key() == Qt::Key_Period) {
        QKeyEvent comma(QEvent::KeyPress, Qt::Key_Comma, event->modifiers(), QStringLiteral(","));
        TypedEdit::keyPressEvent(&comma);
        return;
    }
    TypedEdit::keyPressEvent(event);
}

CurrencySpin::CurrencySpin(QWidget* parent) : QAbstractSpinBox(parent), m_edit(new CurrencyEdit) {
    setLineEdit(m_edit);
}

void CurrencySpin::stepBy(int steps) {
    constexpr std::int64_t Lowest = 1;
    constexpr std::int64_t Highest = 65535;
    if (!m_edit->Complaint().isEmpty())
        return;
    const std::int64_t whole = m_edit->Value().count / Currency::One;
    m_edit->SetValue(Currency::FromWhole(std::clamp(whole + steps, Lowest, Highest)));
    m_edit->selectAll();
}

QValidator::State CurrencySpin::validate(QString&, int&) const {
    return QValidator::Acceptable;
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
    const Currency quantity = m_quantity.Value();
    m_weight.SetValue(CurrencyProductFits(quantity, weight) ? CurrencyMul(quantity, weight) : Currency::Invalid());
}

void WeightLink::ShowWeight() {
    if (m_pieceWeight.count <= 0)
        return;
    const Currency quantity = m_quantity.Value();
    const bool shows = m_quantity.Complaint().isEmpty() && CurrencyProductFits(quantity, m_pieceWeight);
    m_weight.SetValue(shows ? CurrencyMul(quantity, m_pieceWeight) : Currency::Invalid());
}

void WeightLink::ShowQuantity() {
    if (m_pieceWeight.count <= 0)
        return;
    const Currency weight = m_weight.Value();
    const bool shows = m_weight.Complaint().isEmpty() && CurrencyDivFits(weight, m_pieceWeight);
    m_quantity.SetValue(shows ? CurrencyDiv(weight, m_pieceWeight) : Currency::Invalid());
}

bool WeightLink::Check() {
    const QString pieces = RefuseWeight(m_quantity.Value(), m_pieceWeight);
    if (!pieces.isEmpty())
        return Refuse(m_quantity, pieces);
    const QString weight = RefusePieces(m_weight.Value(), m_pieceWeight);
    return weight.isEmpty() || Refuse(m_weight, weight);
}
