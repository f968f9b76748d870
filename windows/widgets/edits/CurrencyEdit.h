#pragma once

#include "core/base/Currency.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QObject>

/// An edit for a currency: takes only what can be read as one, with at most four decimals.
class CurrencyEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CurrencyEdit(QWidget* parent = nullptr);

    void SetValue(Currency value) { setText(CurrencyText(value)); }
    /// A null for an empty edit.
    Currency Value() const { return ParseCurrency(text()); }
    /// Takes the focus with the whole text selected.
    void FocusAll();
};

/// A currency edit with arrows that step through the whole numbers 1 to 65535; what is typed may be outside of them.
class CurrencySpin : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit CurrencySpin(QWidget* parent = nullptr);

    CurrencyEdit& Edit() const { return *m_edit; }
    void stepBy(int steps) override;
    QValidator::State validate(QString& input, int& position) const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    CurrencyEdit* m_edit;
};

/// Two edits that follow each other while the weight of one piece is above nought: the pieces and their weight. Only
/// what the user types is followed, so that one change never comes back as an echo.
class WeightLink : public QObject {
    Q_OBJECT

public:
    WeightLink(CurrencyEdit& quantity, CurrencyEdit& weight, QObject* parent);

    /// Takes the weight of one piece and shows the weight of all.
    void SetPieceWeight(Currency weight);

private:
    void ShowWeight();
    void ShowQuantity();

    CurrencyEdit& m_quantity;
    CurrencyEdit& m_weight;
    Currency m_pieceWeight;
};
