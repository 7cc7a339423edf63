// libFuzzer's own mutations rarely leave a JSON text that parses. Half the time this changes one
// node of the parsed text instead.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <optional>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace {

using namespace Qt::StringLiterals;
using Random = std::minstd_rand;

qsizetype below(Random& random, qsizetype end) {
    return std::uniform_int_distribution<qsizetype>(0, end - 1)(random);
}

QJsonValue interestingValue(Random& random) {
    static const auto values = QJsonDocument::fromJson(R"([
        null, true, false, 0, -1, 1, 2, 0.5, -0.0, 5e-324, 1.7976931348623157e308, 4294967295,
        4294967296, 9007199254740993, -9223372036854775808, 9223372036854775807, -63114076800,
        "", " \t\u00a0", "\u0000\"\\/\n\ud83d\ude00\ufeff", "\ud800", "brimlow.profile", "openApp",
        "2024-02-29T23:59:59Z", "0001-01-01T00:00:00+14:00", "9999-12-31T23:59:59-14:00",
        "AAAAAAAA-89AB-CDEF-0123-456789ABCDEF", [], {}, {"x": 0.25, "y": 1}, {"data": "W10="},
        {"id": "01234567-89AB-CDEF-0123-456789ABCDEF", "name": "n", "action": "openApp"},
        {"id": "01234567-89AB-CDEF-0123-456789ABCDEF", "name": "p", "bindings": []}])")
                                   .array();
    return values[below(random, values.size())];
}

QJsonValue mutated(const QJsonValue& value, Random& random);

QJsonArray mutatedArray(QJsonArray array, Random& random) {
    const auto at = below(random, array.size());
    switch (below(random, 8)) {
    case 0:
        array.removeAt(at);
        break;
    case 1:
        array.append(array[at]);
        break;
    default:
        array[at] = mutated(array[at], random);
    }
    return array;
}

QJsonObject mutatedObject(QJsonObject object, Random& random) {
    const QString key = object.keys()[below(random, object.size())];
    switch (below(random, 12)) {
    case 0:
        object.remove(key);
        break;
    case 1:
        object.insert(interestingValue(random).toString(), object[key]);
        break;
    case 2:
        object.insert(key + u'x', object.take(key));
        break;
    default:
        object[key] = mutated(object[key], random);
    }
    return object;
}

/// The JSON inside of binary data in the preferences.
std::optional<QJsonValue> mutatedData(const QString& text, Random& random) {
    const auto document = QJsonDocument::fromJson(QByteArray::fromBase64(text.toUtf8()));
    if (!document.isArray())
        return std::nullopt;
    const QJsonValue inner = mutated(document.array(), random);
    const QJsonDocument changed(inner.isArray() ? inner.toArray() : QJsonArray{inner});
    return QString::fromLatin1(changed.toJson(QJsonDocument::Compact).toBase64());
}

QJsonValue mutated(const QJsonValue& value, Random& random) {
    const auto dice = below(random, 16);
    if (dice == 0)
        return QJsonArray{value};
    if (dice == 1)
        return interestingValue(random);
    if (value.isArray() && !value.toArray().isEmpty())
        return mutatedArray(value.toArray(), random);
    if (value.isObject() && !value.toObject().isEmpty())
        return mutatedObject(value.toObject(), random);
    if (value.isString() && value.toString().size() > 3)
        if (auto data = mutatedData(value.toString(), random))
            return *data;
    return interestingValue(random);
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    Random random(seed);
    const auto document = QJsonDocument::fromJson(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    if (!document.isObject() || below(random, 2) == 0)
        return LLVMFuzzerMutate(data, size, most);
    const QJsonValue changed = mutated(document.object(), random);
    const auto text = (changed.isObject() ? QJsonDocument(changed.toObject())
                                          : QJsonDocument(QJsonArray{changed}))
                          .toJson(QJsonDocument::Compact);
    if (static_cast<std::size_t>(text.size()) > most)
        return LLVMFuzzerMutate(data, size, most);
    std::memcpy(data, text.constData(), static_cast<std::size_t>(text.size()));
    return static_cast<std::size_t>(text.size());
}
