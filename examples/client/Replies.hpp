#pragma once

#include <QNetworkAccessManager>
#include <QStringList>

#include <functional>
#include <string>

namespace client {

/// One reply of the service, as text. If it could not be read, `error` says why.
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
    /// Requires that no reading is under way.
    void read(const QString& source, const QStringList& names, Receiver receiver);

    bool isReading() const noexcept { return m_pending > 0; }

private:
    void get(const QString& address, Reply& reply);
    void finish(QNetworkReply& answer, Reply& reply);

    QNetworkAccessManager m_network;
    std::vector<Reply> m_replies;
    Receiver m_receiver;
    int m_pending = 0; // number of answers that have not arrived
};

/// Reads a file. One that does not exist is missing.
Reply readFile(const QString& file, const QString& name);

/// Returns the text of a reply. Throws std::runtime_error if it could not be read.
std::string textOf(const Reply& reply);

} // namespace client
