#include "Escaped.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <random>

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

/// What an escape stands for; anything else is itself.
std::string ReadBack(const std::string& sShown)
{
    std::string sBytes;
    for (std::size_t n = 0; n < sShown.size(); ++n) {
        const bool bEscape = sShown.substr(n, 2) == "\\x" && sShown.size() >= n + 4 &&
                             std::isxdigit(sShown[n + 2]) != 0 && std::isxdigit(sShown[n + 3]) != 0;
        sBytes += bEscape ? static_cast<char>(std::stoi(sShown.substr(n + 2, 2), nullptr, 16)) : sShown[n];
        n += bEscape ? 3 : 0;
    }
    return sBytes;
}

TEST(Escaped, CanBeReadBack)
{
    std::mt19937 random(11); // NOLINT: the same course each time
    const std::string sAlphabet = "\\\\\\xx05aF\n\xC3\xA9\xE2\x82\xAC\xFF";
    for (int n = 0; n < 5000; ++n) {
        std::string sBytes(random() % 12, ' ');
        std::generate(sBytes.begin(), sBytes.end(), [&] { return sAlphabet[random() % sAlphabet.size()]; });
        ASSERT_EQ(ReadBack(platform::Escaped(sBytes)), sBytes);
    }
}

} // namespace
