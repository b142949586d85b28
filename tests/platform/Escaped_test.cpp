#include "Escaped.h"

#include <gtest/gtest.h>

namespace {

TEST(Escaped, LetsNoNameActOnTheTextAroundIt)
{
    const struct {
        std::string sName, sShown;
    } cases[] = {
        {"", ""},
        {"plain name", "plain name"},
        {"n\u00e4m\u20ac\U0001F600", "n\u00e4m\u20ac\U0001F600"},
        {"back\\slash\\", "back\\slash\\"},
        {"\\x0A\\x0", "\\x5Cx0A\\x0"},
        {"two\nlines\t\x7F", "two\\x0Alines\\x09\\x7F"},
        {std::string("a\0b", 3), "a\\x00b"},
        {"\xFF\xC3(\xE2\x82", "\\xFF\\xC3(\\xE2\\x82"},
        {"\u0085\u009F\u00A0", "\\xC2\\x85\\xC2\\x9F\u00A0"},
        {"exe\u202Etxt", "exe\\xE2\\x80\\xAEtxt"},
        {"zero\u200Bwidth\u200D", "zero\\xE2\\x80\\x8Bwidth\u200D"},
        {"\u2028", "\\xE2\\x80\\xA8"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(platform::Escaped(each.sName), each.sShown);
    }
}

} // namespace
