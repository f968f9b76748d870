#pragma once

#include "core/base/Currency.h"
#include "windows/widgets/TypedEdit.h"

#include <QAbstractSpinBox>
#include <QObject>

/// An edit for a currency, typed in any form that `ReadNumber` reads. The point of the keypad is the decimal comma.
class CurrencyEdit : public TypedEdit {
    Q_OBJECT
    /// What may be typed after the number: "kg".
    Q_PROPERTY(QString unit MEMBER m_unit)

public:
    using TypedEdit::TypedEdit;

    void SetValue(Currency value) { setText(CurrencyText(value)); }
    /// A null for an empty edit, an invalid one for what cannot be read.
    Currency Value() const;
    QString Complaint() const override;

protected:
    QString TidyText() const override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_unit;
};

/// A currency edit with arrows that step through the whole numbers 1 to 65535; what is typed may be outside of them.
class CurrencySpin : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit CurrencySpin(QWidget* parent = nullptr);

    CurrencyEdit& Edit() const { return *m_edit; }
    /// Does nothing while the text cannot be read.
    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& position) const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    CurrencyEdit* m_edit;
};

/// Two edits that follow each other while the weight of one piece is above nought: the pieces and their weight. Only
/// what the user types is followed, so that one change never comes back as an echo. An edit is empty while the other
/// cannot be read, or has no counterpart that a currency could hold.
class WeightLink : public QObject {
    Q_OBJECT

public:
    WeightLink(CurrencyEdit& quantity, CurrencyEdit& weight, QObject* parent);

    /// Takes the weight of one piece and shows the weight of all.
    void SetPieceWeight(Currency weight);
    /// Refuses pieces whose weight, or a weight whose pieces, no currency can hold: false.
    bool Check();

private:
    void ShowWeight();
    void ShowQuantity();

    CurrencyEdit& m_quantity;
    CurrencyEdit& m_weight;
    Currency m_pieceWeight;
};
