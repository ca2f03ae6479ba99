#include "apEnvironment.h"
#include "apEnvironmentOverride.h"
#include "apNumber.h"
#include "apString.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <string>

namespace
{
// Puts back the process's locale.
class LocaleGuard
{
public:
    LocaleGuard() : the_name(std::setlocale(LC_ALL, nullptr)) {}
    ~LocaleGuard() { std::setlocale(LC_ALL, the_name.c_str()); }

private:
    std::string the_name;
};

const char* scan(const std::string& text, double& value)
{
    return ap_scan_number(text.data(), text.data() + text.size(), value);
}
}

TEST(apString, converts_between_encodings)
{
    const apString euro = apString::from_utf8("1 \xE2\x82\xAC");
    ASSERT_TRUE(euro.valid());
    EXPECT_EQ(euro.wide(), L"1 \u20AC");
    EXPECT_EQ(apString::from_wide(L"\u20AC").utf8(), "\xE2\x82\xAC");
    EXPECT_EQ(apString::from_wide(apString::from_utf8("\xF0\x9F\x94\xA9").wide()).utf8(), "\xF0\x9F\x94\xA9")
        << "a character beyond the first plane";
    std::string narrow;
    EXPECT_TRUE(apString::from_narrow("plain").narrow(narrow));
    EXPECT_EQ(narrow, "plain");
    EXPECT_FALSE(apString::from_wide(std::wstring(1, wchar_t(0xD800))).valid()) << "half a surrogate pair";
    EXPECT_TRUE(apString::from_utf8("").valid());
}

TEST(apString, has_no_valid_string_for_undecodable_bytes)
{
    const struct
    {
        const char* name;
        const char* bytes;
    } cases[] = {
        {"lone continuation", "a\x80"},
        {"cut short", "\xE2\x82"},
        {"overlong slash", "\xC0\xAF"},
        {"surrogate", "\xED\xA0\x80"},
        {"past the last code point", "\xF4\x90\x80\x80"},
    };
    for (const auto& c : cases)
    {
        const apString text = apString::from_utf8(c.bytes);
        EXPECT_FALSE(text.valid()) << c.name;
        EXPECT_TRUE(text.utf8().empty() && text.wide().empty()) << c.name;
        std::string narrow = "kept";
        EXPECT_FALSE(text.narrow(narrow)) << c.name;
        EXPECT_EQ(narrow, "kept") << c.name;
    }
}

TEST(apString, quotes_bytes_of_files_for_messages)
{
    EXPECT_EQ(ap_quoted("1 \xE2\x82\xAC"), "'1 \xE2\x82\xAC'");
    EXPECT_EQ(ap_quoted("\x1b[2J\xC2\x9B\xff\xE2\x82"), "'\\x1b[2J\\xc2\\x9b\\xff\\xe2\\x82'");
    EXPECT_EQ(ap_quoted(std::string(70, 'a')), "'" + std::string(60, 'a') + "...'");
    EXPECT_EQ(ap_quoted(std::string(60, 'a')), "'" + std::string(60, 'a') + "'");
}

TEST(apNumber, scans_up_to_what_is_no_number)
{
    double value = 0;
    const std::string text = " \t+2.5e1,3";
    EXPECT_EQ(scan(text, value), text.data() + 8);
    EXPECT_EQ(value, 25.0);

    int whole = 0;
    const std::string digits = "-12.5";
    EXPECT_EQ(ap_scan_number(digits.data(), digits.data() + digits.size(), whole), digits.data() + 3);
    EXPECT_EQ(whole, -12);

    value = 4.0;
    for (const char* bad : {"", "  ", "+", "+-1", "x", "."})
        EXPECT_EQ(scan(bad, value), nullptr) << bad;
    EXPECT_EQ(scan("1e999", value), nullptr);
    EXPECT_EQ(value, 4.0) << "a failed scan leaves the value alone";
}

TEST(apNumber, texts_do_not_depend_on_the_locale)
{
    const LocaleGuard guard;
    // Where the machine has none of these the check still holds, with less to prove.
    for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "German"})
        if (std::setlocale(LC_ALL, locale))
            break;
    EXPECT_EQ(ap_number_text(0.1), "0.1");
    EXPECT_EQ(ap_number_text(1234.5, 2), "1234.50");
    EXPECT_EQ(ap_number_text(std::numeric_limits<double>::max(), 17).size(), 309u + 1 + 17);
    double value = 0;
    EXPECT_NE(scan("0.1", value), nullptr);
    EXPECT_EQ(value, 0.1);
}

TEST(apEnvironment, overrides_nest_and_end)
{
    const char* name = "GR_TEST_VARIABLE_THAT_NOBODY_SETS";
    std::string value = "kept";
    EXPECT_FALSE(apEnvironment::lookup(name, value));
    EXPECT_EQ(value, "kept");
    {
        const apEnvironmentOverride outer(name, "");
        EXPECT_TRUE(apEnvironment::lookup(name, value)) << "an empty variable exists";
        EXPECT_EQ(value, "");
        {
            const apEnvironmentOverride inner(name, nullptr);
            EXPECT_FALSE(apEnvironment::contains(name));
        }
        EXPECT_TRUE(apEnvironment::contains(name));
    }
    EXPECT_FALSE(apEnvironment::contains(name));

    EXPECT_TRUE(apEnvironment::contains("PATH"));
    const apEnvironmentOverride hidden("PATH", nullptr);
    EXPECT_FALSE(apEnvironment::contains("PATH"));
}
