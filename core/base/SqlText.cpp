#include "core/base/SqlText.h"

#include <cassert>

std::string FormatText(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    std::string text;
    text.reserve(format.size() + 16 * arguments.size());
    const FormatArgument* next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            const std::size_t end = std::min(format.find('%', i), format.size());
            text.append(format, i, end - i);
            i = end - 1;
            continue;
        }
        std::size_t width = 0;
        for (++i; i < format.size() && format[i] >= '0' && format[i] <= '9'; ++i)
            width = width * 10 + static_cast<std::size_t>(format[i] - '0');
        if (i < format.size() && format[i] == 'l')
            ++i;
        assert(i < format.size() && (format[i] == '%' || next != arguments.end()));
        if (i == format.size())
            break;
        if (format[i] == '%') {
            text += '%';
        } else if (next != arguments.end()) {
            if (next->IsNumber()) {
                std::string number = std::to_string(next->Number());
                if (number.size() < width)
                    number.insert(number[0] == '-' ? 1 : 0, width - number.size(), '0');
                text += number;
            } else {
                text += next->Text();
            }
            ++next;
        }
    }
    assert(next == arguments.end());
    return text;
}

std::string SqlDay(const DateTime& day) {
    return SqlText("#%i/%i/%i#", day.Month(), day.Day(), day.Year());
}

std::string SqlBetween(const char* field, const DateTime& from, const DateTime& to) {
    return SqlText("DATEDIFF(\"d\", %s, %s)>=0 AND DATEDIFF(\"d\", %s, %s)>=0", SqlDay(from), field, field, SqlDay(to));
}
