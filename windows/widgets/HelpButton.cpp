#include "windows/widgets/HelpButton.h"

#include <QBoxLayout>
#include <QPushButton>

/// The row, or column, of buttons that the widget stands in; null when there is none.
static QBoxLayout* RowOf(QLayout& layout, QWidget& widget) {
    if (layout.indexOf(&widget) >= 0)
        return qobject_cast<QBoxLayout*>(&layout);
    for (int i = 0; i < layout.count(); ++i)
        if (QLayout* const inner = layout.itemAt(i)->layout())
            if (QBoxLayout* const row = RowOf(*inner, widget))
                return row;
    return nullptr;
}

void AddHelpButton(QPushButton& beside, HelpContext context) {
    QBoxLayout* const row = RowOf(*beside.parentWidget()->layout(), beside);
    Q_ASSERT(row != nullptr);
    auto* const button = new QPushButton(QStringLiteral("Nápověda"), beside.parentWidget());
    button->setObjectName(QStringLiteral("help"));
    button->setAutoDefault(false);
    row->insertWidget(row->indexOf(&beside) + 1, button);
    QObject::connect(button, &QPushButton::clicked, button, [context] { OpenHelp(context); });
}
