#include "platform/x11/CompoundText.h"

#include <iconv.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

constexpr char escape = 0x1b;
constexpr char startOfDirection = '\x9b'; // CSI; the sequences that it starts end in ']'

// A set of characters that a designation selects for one half of the byte range.
struct CharacterSet {
    char designation;     // the final byte of the sequence
    int width;            // bytes per character
    const char* encoding; // as iconv calls it, with the bytes in the upper half
};

constexpr CharacterSet ascii = {'B', 1, "ASCII"};
constexpr CharacterSet latin1 = {'A', 1, "ISO-8859-1"};

constexpr std::array latinSets = {
    latin1,
    CharacterSet{'B', 1, "ISO-8859-2"},
    CharacterSet{'C', 1, "ISO-8859-3"},
    CharacterSet{'D', 1, "ISO-8859-4"},
    CharacterSet{'F', 1, "ISO-8859-7"},
    CharacterSet{'G', 1, "ISO-8859-6"},
    CharacterSet{'H', 1, "ISO-8859-8"},
    CharacterSet{'L', 1, "ISO-8859-5"},
    CharacterSet{'M', 1, "ISO-8859-9"},
    CharacterSet{'T', 1, "TIS-620"},
    CharacterSet{'b', 1, "ISO-8859-15"},
};
constexpr std::array asianSets = {
    CharacterSet{'A', 2, "GB2312"},
    CharacterSet{'B', 2, "EUC-JP"},
    CharacterSet{'C', 2, "EUC-KR"},
};

// '?' for each character that cannot be converted, so that the length tells how much is missing.
QString unreadable(qsizetype bytes, int width) {
    return QString((bytes + width - 1) / width, u'?');
}

QString converted(QByteArray bytes, const CharacterSet& set) {
    iconv_t converter = set.encoding ? iconv_open("UTF-8", set.encoding) : iconv_t(-1);
    if (converter == iconv_t(-1))
        return unreadable(bytes.size(), set.width);
    QByteArray output(bytes.size() * 4, '\0');
    char* from = bytes.data();
    char* to = output.data();
    auto fromLeft = static_cast<std::size_t>(bytes.size());
    auto toLeft = static_cast<std::size_t>(output.size());
    iconv(converter, &from, &fromLeft, &to, &toLeft);
    iconv_close(converter);
    return QString::fromUtf8(output.constData(), to - output.constData())
           + unreadable(static_cast<qsizetype>(fromLeft), set.width);
}

class Decoder {
public:
    explicit Decoder(QByteArrayView bytes) : rest_(bytes) {}

    QString decode() {
        while (!rest_.isEmpty()) {
            if (rest_.front() == escape)
                takeSequence();
            else if (rest_.front() == startOfDirection)
                skipPast(']');
            else
                takeRun();
        }
        return text_;
    }

private:
    // ESC, intermediate bytes 0x20...0x2f, one final byte.
    void takeSequence() {
        const auto* end = std::find_if(rest_.begin() + 1, rest_.end(),
                                       [](char c) { return c < 0x20 || c > 0x2f; });
        const qsizetype length = end - rest_.begin();
        const QByteArrayView intermediates = rest_.sliced(1, length - 1);
        const char last = end == rest_.end() ? '\0' : *end;
        rest_ = rest_.sliced(std::min(length + 1, rest_.size()));
        if (intermediates == "%" && last == 'G')
            takeUtf8();
        else if (intermediates == "%/")
            skipExtendedSegment();
        else
            designate(intermediates, last);
    }

    void designate(QByteArrayView intermediates, char last) {
        if (intermediates == "(")
            lower_ = last == 'B' || last == 'J' ? ascii : CharacterSet{last, 1, nullptr};
        else if (intermediates == ")")
            upper_ =
                last == 'I' ? CharacterSet{last, 1, "JIS_X0201"} : CharacterSet{last, 1, nullptr};
        else if (intermediates == "-")
            upper_ = known(latinSets, last, 1);
        else if (intermediates == "$(")
            lower_ = known(asianSets, last, 2);
        else if (intermediates == "$)")
            upper_ = known(asianSets, last, 2);
    }

    template<std::size_t size>
    static CharacterSet known(const std::array<CharacterSet, size>& sets, char last, int width) {
        const auto* set = std::ranges::find(sets, last, &CharacterSet::designation);
        return set == sets.end() ? CharacterSet{last, width, nullptr} : *set;
    }

    void takeUtf8() {
        const qsizetype end = rest_.indexOf("\x1b%@");
        text_ += QString::fromUtf8(end < 0 ? rest_ : rest_.first(end));
        rest_ = rest_.sliced(end < 0 ? rest_.size() : end + 3);
    }

    // A private encoding: two bytes of length in base 128, the encoding's name, STX, the text.
    void skipExtendedSegment() {
        text_ += u'?';
        const qsizetype length =
            rest_.size() < 2 ? 0 : 2 + (rest_[0] & 0x7f) * 128 + (rest_[1] & 0x7f);
        rest_ = length == 0 || length > rest_.size() ? QByteArrayView() : rest_.sliced(length);
    }

    void takeRun() {
        const bool upper = rest_.front() & 0x80;
        const auto* end = std::find_if(rest_.begin(), rest_.end(), [upper](char c) {
            return c == escape || c == startOfDirection || bool(c & 0x80) != upper;
        });
        QByteArray run = rest_.first(end - rest_.begin()).toByteArray();
        rest_ = rest_.sliced(run.size());
        const CharacterSet& set = upper ? upper_ : lower_;
        if (!upper && set.width > 1)
            std::ranges::transform(run, run.begin(), [](char c) { return char(c | 0x80); });
        text_ += converted(run, set);
    }

    void skipPast(char last) {
        const qsizetype end = rest_.indexOf(last);
        rest_ = rest_.sliced(end < 0 ? rest_.size() : end + 1);
    }

    QByteArrayView rest_;
    QString text_;
    CharacterSet lower_ = ascii;
    CharacterSet upper_ = latin1;
};

} // namespace

QString decodeCompoundText(QByteArrayView bytes) {
    return Decoder(bytes).decode();
}

} // namespace brimlow::platform
