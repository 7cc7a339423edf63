#pragma once

#include "profiles/JsonValues.h"

#include <string_view>

namespace brimlow::json {

/// Writes one document as compact UTF-8, members in the order in which they come: several times as
/// fast as a tree of QJsonValues, and the profiles are written at every change of one binding.
/// Every value is written as its reader in JsonValues.h takes it. Any thread.
class Writer {
public:
    explicit Writer(DateStrategy dates) : dates_(dates) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// A member of the open object; its value follows. `name` is plain ASCII.
    void key(std::string_view name);

    void value(const QString& text);
    void value(double number);
    void value(qint64 number);
    void value(bool boolean);
    void value(const QUuid& id);
    void value(platform::Date date);
    /// Of records that write themselves.
    template<typename Record>
    void value(const std::vector<Record>& records) {
        beginArray();
        for (const Record& record : records)
            record.write(*this);
        endArray();
    }

    template<typename T>
    void member(std::string_view name, const T& each) {
        key(name);
        value(each);
    }
    /// An absent one is not written at all.
    template<typename T>
    void member(std::string_view name, const std::optional<T>& each) {
        if (each)
            member(name, *each);
    }

    /// What was written; none if a number was not finite or a date does not fit its form.
    std::optional<QByteArray> bytes() const;

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void appendQuoted(std::string_view utf8);
    void appendEscaped(char character);

    DateStrategy dates_;
    QByteArray bytes_;
    bool first_ = true; // of its object or array, or the value of a key: no comma before it
    bool complete_ = true;
};

} // namespace brimlow::json
