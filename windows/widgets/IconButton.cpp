#include "windows/widgets/IconButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {
constexpr int IconSize = 16;
constexpr int TextGap = 3;
} // namespace

QIcon NamedIcon(const char* name) {
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}

CIconButton::CIconButton(const QIcon& icon, QWidget* parent) : QPushButton(parent) {
    setIcon(icon);
    setIconSize({IconSize, IconSize});
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
}

void CIconButton::SetLatched(bool latched) {
    setCheckable(true);
    setChecked(latched);
}

QSize CIconButton::sizeHint() const {
    const int text = this->text().isEmpty() ? 0 : TextGap + fontMetrics().horizontalAdvance(this->text());
    return {IconSize + 8 + text, IconSize + 8};
}

void CIconButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool pushed = isDown() || isChecked();
    option.icon = {};
    option.text.clear();
    option.state.setFlag(QStyle::State_Sunken, pushed);
    option.state.setFlag(QStyle::State_On, pushed);
    option.state.setFlag(QStyle::State_Raised, !pushed && !isFlat());
    painter.drawControl(QStyle::CE_PushButton, option);

    const int textWidth = text().isEmpty() ? 0 : TextGap + fontMetrics().horizontalAdvance(text());
    QRect place(0, 0, IconSize + textWidth, IconSize);
    place.moveCenter(rect().center());
    if (pushed)
        place.translate(1, 1);
    icon().paint(&painter, QRect(place.topLeft(), QSize(IconSize, IconSize)), Qt::AlignCenter,
                 isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (textWidth > 0)
        style()->drawItemText(&painter, place.adjusted(IconSize + TextGap, 0, 0, 0), Qt::AlignVCenter, palette(),
                              isEnabled(), text(), QPalette::ButtonText);
}
