#include "ui/files/FileNames.h"

#include <gtest/gtest.h>

namespace brimlow {
namespace {

using namespace Qt::StringLiterals;

QString times(int count, QStringView text) {
    return text.toString().repeated(count);
}

const QString family = u"👨‍👩‍👧"_s; // 18 bytes, one character

TEST(FileNames, AreOnesThatCanBeStored) {
    struct Row {
        QString name;
        QString stored;
    };
    for (const auto& [name, stored] :
         {Row{u"Brimlow-a \"b\" 100% .c.json"_s, u"Brimlow-a \"b\" 100% .c.json"_s}, //
          Row{{}, {}},                                                               //
          Row{u"a\0b.json"_s, u"ab.json"_s},
          Row{times(250, u"a") + u".json"_s, times(250, u"a") + u".json"_s},
          Row{times(251, u"a") + u".json"_s, times(250, u"a") + u".json"_s},
          Row{times(126, u"é") + u".json"_s, times(125, u"é") + u".json"_s},
          Row{u"a"_s + times(125, u"é") + u".json"_s, u"a"_s + times(124, u"é") + u".json"_s},
          Row{times(250, u"a") + u"\u0301.json"_s, times(249, u"a") + u".json"_s},
          Row{times(14, family) + u".json"_s, times(13, family) + u".json"_s},
          Row{times(9999, u"a.b"), times(84, u"a.b") + u"a.b"_s},
          Row{u'.' + times(300, u"a"), u'.' + times(254, u"a")},
          Row{u"a."_s + times(300, u"b"), u"a."_s + times(253, u"b")}}) {
        EXPECT_EQ(storableFileName(name), stored);
        EXPECT_LE(storableFileName(name).toUtf8().size(), 255);
    }
}

} // namespace
} // namespace brimlow
