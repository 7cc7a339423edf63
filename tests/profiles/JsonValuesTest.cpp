#include "profiles/JsonWriter.h"
#include "tests/profiles/Json.h"

#include <gtest/gtest.h>

#include <limits>

namespace brimlow {

using namespace Qt::StringLiterals;
using json::DateStrategy;
using test::quoted;

TEST(JsonValues, AnIdIsExactlyItsCanonicalForm) {
    const auto id = json::uuid(quoted("'01234567-89ab-CDEF-0123-456789abcdef'"));
    ASSERT_TRUE(id);
    EXPECT_EQ(json::uuidText(*id).toStdString(), "01234567-89AB-CDEF-0123-456789ABCDEF");
    EXPECT_TRUE(json::uuid(quoted("'00000000-0000-0000-0000-000000000000'")));
    for (const char* bad :
         {"'{01234567-89ab-cdef-0123-456789abcdef}'", "'01234567-89ab-cdef-0123-456789abcdef0'",
          "'01234567-89ab-cdef-0123-456789abcdef\\n'", "'01234567-89ab-cdef-0123-456789abcdeg'",
          "'0123456789ab-cdef-0123-4567-89abcdef'", "''", "7"})
        EXPECT_FALSE(json::uuid(quoted(bad))) << bad;
}

TEST(JsonValues, WindowNumbersAreWholeAndHave32Bits) {
    EXPECT_EQ(json::unsigned32(quoted("0")), 0U);
    EXPECT_EQ(json::unsigned32(quoted("1.0")), 1U);
    EXPECT_EQ(json::unsigned32(quoted("4294967295")), 0xffffffffU);
    for (const char* bad : {"1.5", "-1", "4294967296", "1e300", "true", "'1'", "null"})
        EXPECT_FALSE(json::unsigned32(quoted(bad))) << bad;
}

TEST(JsonValues, DatesFollowTheDocument) {
    const auto read = [](const char* text, DateStrategy strategy) {
        const auto date = json::date(quoted(text), strategy);
        return date ? std::optional(date->secondsSince1970) : std::nullopt;
    };
    EXPECT_EQ(read("-978307200.25", DateStrategy::secondsSince2001), -0.25);
    for (const char* bad : {"'2001-01-01T00:00:00Z'", "true"})
        EXPECT_FALSE(read(bad, DateStrategy::secondsSince2001)) << bad;
    for (const char* newYear :
         {"'2001-01-01T00:00:00Z'", "'2001-01-01T01:30:00+01:30'", "'2000-12-31T23:00:00-01:00'"})
        EXPECT_EQ(read(newYear, DateStrategy::iso8601), 978307200) << newYear;
    for (const char* bad : {"'2001-01-01T00:00:00.5Z'", "'2001-01-01T00:00:00'", "'2001-01-01'",
                            "'2001-01-01 00:00:00Z'", "'2001-02-29T00:00:00Z'",
                            "'2001-01-01T24:00:00Z'", "'2001-01-01T00:00:00Z\\n'", "0",
                            "'9999-12-31T23:59:59-01:00'", "'2001-01-01T00:00:00+24:00'"})
        EXPECT_FALSE(read(bad, DateStrategy::iso8601)) << bad;
}

TEST(JsonValues, DatesAreWrittenInWholeSecondsWhereTheDocumentSaysSo) {
    EXPECT_EQ(json::iso8601Text({978307199.9}).toStdString(), "2000-12-31T23:59:59Z");
    EXPECT_EQ(json::secondsSince2001({978307200.5}), 0.5);
}

TEST(JsonValues, EveryTextAndNumberIsWrittenAsItIsRead) {
    json::Writer writer(DateStrategy::secondsSince2001);
    const QString odd = u"\"\\/\b\n\u0001\u007f\u0000\u2028ü🦊\uffff"_s;
    const std::vector<double> numbers{1.0,  0.1,    -0.0, 5e-324, 1.7976931348623157e308,
                                      1e22, 1.0 / 3};
    writer.beginArray();
    writer.value(odd);
    for (const double number : numbers)
        writer.value(number);
    writer.value(true);
    writer.endArray();
    const auto list = QJsonDocument::fromJson(writer.bytes().value()).array();
    ASSERT_EQ(list.size(), 2 + static_cast<qsizetype>(numbers.size()));
    EXPECT_EQ(json::text(list[0]), odd);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(list[static_cast<qsizetype>(i) + 1].toDouble(), numbers[i]);
}

TEST(JsonValues, HalfASurrogatePairIsNoText) {
    EXPECT_EQ(json::text(quoted("'a\\ud800b'")), u"a?b"_s);
    json::Writer writer(DateStrategy::secondsSince2001);
    writer.value(QString(QChar(0xdc00)));
    EXPECT_EQ(writer.bytes(), "\"?\"");
}

TEST(JsonValues, ADocumentHoldsNoNumberThatIsNotFinite) {
    const auto isWritten = [](auto value) {
        json::Writer writer(DateStrategy::iso8601);
        writer.value(value);
        return writer.bytes().has_value();
    };
    for (const double bad : {std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_FALSE(isWritten(bad) || isWritten(platform::Date{bad}));
    EXPECT_FALSE(isWritten(platform::Date{1e12})); // year 33658
    EXPECT_TRUE(isWritten(1e308) && isWritten(platform::Date{0}));
}

} // namespace brimlow
