#include "core/base/SameName.h"

#include <algorithm>

namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

} // namespace

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           (a.data() == b.data() ||
            std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return x == y || Lower(x) == Lower(y); }));
}
