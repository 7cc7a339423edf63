#include "platform/x11/CompoundText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace brimlow::platform {
namespace {

TEST(CompoundText, DecodesDesignationsAndDegradesWhatIsUnknown) {
    const struct {
        const char* about;
        QByteArray bytes;
        QString expected;
    } rows[] = {
        {"nothing", "", u""_s},
        {"ASCII and Latin-1 without a designation", "caf\xe9 100 %", u"café 100 %"_s},
        {"Cyrillic in the upper half", "\x1b-L\xbf\xe0\xd8", u"При"_s},
        {"back to Latin-1", "\x1b-L\xbf\x1b-A\xe9", u"Пé"_s},
        {"Japanese in the lower half, and back", "\x1b$(BF|K\\\x1b(B ok", u"日本 ok"_s},
        {"UTF-8", "a \x1b%G\xe2\x80\x94\xf0\x9f\x90\x88\x1b%@ b", u"a —🐈 b"_s},
        {"UTF-8 that never ends", "\x1b%G\xe2\x80\x94", u"—"_s},
        {"UTF-8 cut in a character", "a\x1b%G\xe2\x80", u"a\uFFFD\uFFFD"_s},
        {"direction marks",
         "\x9b"
         "2]ab\x9b]c",
         u"abc"_s},
        {"an unknown set of one byte", "\x1b-Z\xa1\xa2z", u"??z"_s},
        {"an unknown set of two bytes", "\x1b$(Z!!!!\x1b(Bz", u"??z"_s},
        {"an extended segment",
         "\x1b%/1\x80\x87"
         "big5-0\x02z",
         u"?z"_s},
        {"an extended segment longer than the text",
         "a\x1b%/1\xff\xff"
         "x",
         u"a?"_s},
        {"a sequence cut off", "a\x1b", u"a"_s},
        {"a sequence cut off later", "a\x1b$(", u"a"_s},
        {"half a character of two bytes", "\x1b$(BF", u"?"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(decodeCompoundText(row.bytes), row.expected) << row.about;
}

} // namespace
} // namespace brimlow::platform
