#include "profiles/JsonValues.h"

#include "tests/profiles/Json.h"

#include <gtest/gtest.h>

#include <limits>

namespace brimlow {

using namespace Qt::StringLiterals;
using json::DateStrategy;
using platform::Date;
using test::quoted;

TEST(JsonValues, AnIdIsExactlyItsCanonicalForm) {
    struct Row {
        const char* text;
        const char* written; // null: no id
    };
    const Row rows[] = {
        {"'01234567-89ab-CDEF-0123-456789abcdef'", "01234567-89AB-CDEF-0123-456789ABCDEF"},
        {"'00000000-0000-0000-0000-000000000000'", "00000000-0000-0000-0000-000000000000"},
        {"'{01234567-89ab-cdef-0123-456789abcdef}'", nullptr},
        {"'01234567-89ab-cdef-0123-456789abcdef0'", nullptr},
        {"'01234567-89ab-cdef-0123-456789abcdef\\n'", nullptr},
        {"'01234567-89ab-cdef-0123-456789abcde'", nullptr},
        {"'01234567-89ab-cdef-0123-456789abcdeg'", nullptr},
        {"'0123456789ab-cdef-0123-4567-89abcdef'", nullptr},
        {"''", nullptr},
        {"7", nullptr}};
    for (const Row& row : rows) {
        const auto id = json::uuid(quoted(row.text));
        ASSERT_EQ(id.has_value(), row.written != nullptr) << row.text;
        if (id) {
            EXPECT_EQ(json::uuidText(*id).toStdString(), row.written);
        }
    }
}

TEST(JsonValues, WindowNumbersAreWholeAndHave32Bits) {
    struct Row {
        const char* text;
        std::optional<std::uint32_t> number;
    };
    const Row rows[] = {{"0", 0U},
                        {"1.0", 1U},
                        {"1.5", {}},
                        {"-1", {}},
                        {"2147483648", 0x80000000U},
                        {"4294967295", 0xffffffffU},
                        {"4294967296", {}},
                        {"4.294967295e9", 0xffffffffU},
                        {"1e300", {}},
                        {"true", {}},
                        {"'1'", {}},
                        {"null", {}}};
    for (const Row& row : rows)
        EXPECT_EQ(json::unsigned32(quoted(row.text)), row.number) << row.text;
}

TEST(JsonValues, DatesFollowTheDocument) {
    struct Row {
        const char* text;
        DateStrategy strategy;
        std::optional<double> secondsSince1970;
    };
    constexpr auto seconds = DateStrategy::secondsSince2001;
    constexpr auto iso = DateStrategy::iso8601;
    const Row rows[] = {{"0", seconds, 978307200},
                        {"-978307200.25", seconds, -0.25},
                        {"'2001-01-01T00:00:00Z'", seconds, {}},
                        {"true", seconds, {}},
                        {"'2001-01-01T00:00:00Z'", iso, 978307200},
                        {"'2001-01-01T01:30:00+01:30'", iso, 978307200},
                        {"'2000-12-31T23:00:00-01:00'", iso, 978307200},
                        {"'2001-01-01T00:00:00.5Z'", iso, {}},
                        {"'2001-01-01T00:00:00'", iso, {}},
                        {"'2001-01-01'", iso, {}},
                        {"'2001-01-01 00:00:00Z'", iso, {}},
                        {"'2001-02-29T00:00:00Z'", iso, {}},
                        {"'2001-01-01T24:00:00Z'", iso, {}},
                        {"'2001-01-01T00:00:00Z\\n'", iso, {}},
                        {"0", iso, {}}};
    for (const Row& row : rows) {
        const auto date = json::date(quoted(row.text), row.strategy);
        ASSERT_EQ(date.has_value(), row.secondsSince1970.has_value()) << row.text;
        if (date) {
            EXPECT_EQ(date->secondsSince1970, *row.secondsSince1970) << row.text;
        }
    }
}

TEST(JsonValues, DatesAreWrittenInWholeSecondsWhereTheDocumentSaysSo) {
    EXPECT_EQ(json::dateValue({978307200.9}, DateStrategy::iso8601).toString().toStdString(),
              "2001-01-01T00:00:00Z");
    EXPECT_EQ(json::dateValue({978307199.9}, DateStrategy::iso8601).toString().toStdString(),
              "2000-12-31T23:59:59Z");
    EXPECT_EQ(json::dateValue({978307200.5}, DateStrategy::secondsSince2001).toDouble(), 0.5);
}

TEST(JsonValues, ADocumentHoldsNoNumberThatIsNotFinite) {
    for (const double bad : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_FALSE(json::bytes({bad}));
        EXPECT_FALSE(json::bytes({QJsonObject{{u"a"_s, QJsonArray{1, bad}}}}));
    }
    EXPECT_FALSE(json::bytes({json::dateValue({1e12}, DateStrategy::iso8601)})); // year 33658
    EXPECT_EQ(json::bytes({1.0, 0.1, true}), "[1,0.1,true]");
}

} // namespace brimlow
