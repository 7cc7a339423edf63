#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace brimlow {

/// The file chooser of a portal, on a connection of its own: keeps what it is asked, and answers
/// when the test says so.
class FakeFileChooser : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit FakeFileChooser(QDBusConnection bus);
    ~FakeFileChooser() override { vanish(); }

    /// As portals before 0.9: the request is not where the caller thinks.
    bool namesRequestsItself = false;
    /// Every call fails with that error, unless empty.
    QString error;
    /// Calls get no reply.
    bool silent = false;

    QString method; // of the last call that asks for a file
    QString parentName;
    QVariantMap options;
    QString closed; // the request that was closed last

    QString request() const;
    void respond(uint code, const QStringList& uris = {});
    void vanish();

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QDBusConnection bus_;
    QString caller_;
};

} // namespace brimlow
