#include "Replies.hpp"

#include <QFile>
#include <QFileInfo>
#include <QNetworkReply>

#include <utility>

namespace client {
namespace {

constexpr qint64 maxBytes = 1LL << 27; // of one reply; 60,000 fonts take 50 MB

bool isAddress(const QString& source) {
    return source.startsWith("http://") || source.startsWith("https://");
}

} // namespace

void Replies::get(const QString& source, const QStringList& names, Receiver receiver,
                  Progress progress) {
    cancel();
    m_receiver = std::move(receiver);
    m_progress = std::move(progress);
    for (const QString& name : names)
        m_replies.push_back({name, isAddress(source) ? QString() : source + "/" + name});
    if (!isAddress(source)) {
        m_receiver(std::exchange(m_replies, {}));
        return;
    }
    m_pending = m_replies.size();
    for (std::size_t i = 0; i < m_replies.size(); ++i)
        request(source + (source.endsWith('/') ? "" : "/") + m_replies[i].name, i);
}

void Replies::cancel() {
    for (QNetworkReply* const answer : std::exchange(m_answers, {})) {
        QObject::disconnect(answer, nullptr, nullptr, nullptr);
        answer->abort();
        answer->deleteLater();
    }
    m_replies.clear();
}

void Replies::request(const QString& address, std::size_t place) {
    QNetworkRequest request{QUrl(address)};
    request.setTransferTimeout(); // half a minute without a byte
    QNetworkReply* const answer = m_network.get(request);
    m_answers.push_back(answer);
    QObject::connect(answer, &QNetworkReply::downloadProgress, answer, [this, answer, place] {
        qint64 received = 0;
        for (const QNetworkReply* const each : m_answers)
            received += each->bytesAvailable();
        m_progress(received);
        if (answer->bytesAvailable() > maxBytes) {
            m_replies[place].error = "the reply has more than 128 MB";
            answer->abort();
        }
    });
    QObject::connect(answer, &QNetworkReply::finished, &m_network,
                     [this, answer, place] { finish(*answer, place); });
}

void Replies::finish(QNetworkReply& answer, std::size_t place) {
    Reply& reply = m_replies[place];
    if (answer.error() != QNetworkReply::NoError && reply.error.isEmpty())
        reply.error = answer.errorString();
    reply.isMissing = answer.error() == QNetworkReply::ContentNotFoundError;
    reply.text = answer.readAll(); // of a failure, too: it may be an error of the service
    if (--m_pending > 0)
        return;
    for (QNetworkReply* const each : std::exchange(m_answers, {}))
        each->deleteLater();
    m_receiver(std::exchange(m_replies, {}));
}

void readFile(Reply& reply) {
    if (reply.file.isEmpty())
        return;
    const QFileInfo info(reply.file);
    QFile device(reply.file);
    reply.isMissing = !info.exists();
    if (info.exists() && !info.isFile()) // a pipe would block, a device has no end
        reply.error = "it is no regular file";
    else if (info.size() > maxBytes)
        reply.error = "the file has more than 128 MB";
    else if (device.open(QIODevice::ReadOnly))
        reply.text = device.readAll();
    if (device.error() != QFileDevice::NoError)
        reply.error = device.errorString();
}

} // namespace client
