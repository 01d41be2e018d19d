#pragma once

#include <QNetworkAccessManager>
#include <QStringList>

#include <functional>
#include <vector>

namespace client {

/// One reply of the service. If the transfer failed, `error` says why, and `text` is what came.
struct Reply {
    QString name;
    QByteArray text{};
    QString error{};
    bool isMissing = false; // there is no such file
};

/// Reads replies from a folder where they were saved, or from the service over HTTP.
class Replies {
public:
    using Receiver = std::function<void(const std::vector<Reply>&)>;

    /// Reads the files of these names from a folder or an address, then calls the receiver with
    /// the replies in this order: at once for a folder, after the last answer for an address.
    /// Cancels what is under way.
    void read(const QString& source, const QStringList& names, Receiver receiver);

    /// Ends the reading. The receiver is not called.
    void cancel();

    bool isReading() const noexcept { return !m_pending.empty(); }

private:
    void get(const QString& address, Reply& reply);
    void finish(QNetworkReply& answer, Reply& reply);
    void forget(QNetworkReply& answer);

    QNetworkAccessManager m_network;
    std::vector<Reply> m_replies;
    Receiver m_receiver;
    std::vector<QNetworkReply*> m_pending; // answers that have not arrived
};

/// Reads a regular file of at most 256 MB. One that does not exist is missing.
Reply readFile(const QString& file, const QString& name);

} // namespace client
