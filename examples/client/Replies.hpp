#pragma once

#include <QNetworkAccessManager>
#include <QStringList>

#include <functional>
#include <vector>

class QNetworkReply;

namespace client {

/// One reply of the service, as text. If its transfer failed, `error` says why; the text may then
/// be an error of the service, a part of the reply, or empty.
struct Reply {
    QString name;
    QString file{}; // to read the text from, or empty
    QByteArray text{};
    QString error{};
    bool isMissing = false; // there is no such reply
};

/// Gets replies from a folder where they were saved, or from the service over HTTP.
class Replies {
public:
    using Receiver = std::function<void(std::vector<Reply>)>;
    using Progress = std::function<void(qint64 received)>;

    /// Gets the replies of these names from a folder or an address, then calls the receiver with
    /// them in this order: at once for a folder, whose files are not read yet, after the last
    /// answer for an address. Cancels what is under way.
    void get(const QString& source, const QStringList& names, Receiver receiver, Progress progress);

    /// Ends the transfers that are under way. The receiver is not called.
    void cancel();

private:
    void request(const QString& address, std::size_t place);
    void finish(QNetworkReply& answer, std::size_t place);

    QNetworkAccessManager m_network;
    std::vector<Reply> m_replies;
    std::vector<QNetworkReply*> m_answers; // owned by m_network
    Receiver m_receiver;
    Progress m_progress;
    std::size_t m_pending = 0; // number of answers that have not arrived
};

/// Reads the text of a reply from its file, if it has one.
void readFile(Reply& reply);

} // namespace client
