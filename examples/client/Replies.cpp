#include "Replies.hpp"

#include <QFile>
#include <QFileInfo>
#include <QNetworkReply>

namespace client {
namespace {

constexpr qint64 maximumSize = 1LL << 28;
constexpr const char* tooLong = "is longer than 256 MB";

} // namespace

void Replies::read(const QString& source, const QStringList& names, Receiver receiver) {
    cancel();
    m_replies.clear();
    m_receiver = std::move(receiver);
    const bool isAddress = source.startsWith("http://") || source.startsWith("https://");
    for (const QString& name : names)
        m_replies.push_back(isAddress ? Reply{name} : readFile(source + "/" + name, name));
    if (isAddress)
        for (Reply& reply : m_replies)
            get(source + (source.endsWith('/') ? "" : "/") + reply.name, reply);
    else
        m_receiver(m_replies);
}

void Replies::cancel() {
    while (!m_pending.empty()) {
        QNetworkReply& answer = *m_pending.back();
        forget(answer);
        answer.abort();
    }
}

void Replies::get(const QString& address, Reply& reply) {
    QNetworkRequest request{QUrl(address)};
    request.setTransferTimeout(); // half a minute without a byte
    QNetworkReply* const answer = m_network.get(request);
    m_pending.push_back(answer);
    QObject::connect(answer, &QNetworkReply::downloadProgress, answer,
                     [answer, &reply](qint64 bytes) {
                         if (bytes <= maximumSize)
                             return;
                         reply.error = tooLong;
                         answer->abort();
                     });
    QObject::connect(answer, &QNetworkReply::finished, &m_network,
                     [this, answer, &reply] { finish(*answer, reply); });
}

void Replies::finish(QNetworkReply& answer, Reply& reply) {
    reply.text = answer.readAll();
    reply.isMissing = answer.error() == QNetworkReply::ContentNotFoundError;
    if (answer.error() != QNetworkReply::NoError && reply.error.isEmpty())
        reply.error = answer.errorString();
    forget(answer);
    if (m_pending.empty())
        m_receiver(m_replies);
}

void Replies::forget(QNetworkReply& answer) {
    std::erase(m_pending, &answer);
    answer.disconnect();
    answer.deleteLater();
}

Reply readFile(const QString& file, const QString& name) {
    const QFileInfo info(file);
    QFile device(file);
    Reply reply{name};
    reply.isMissing = !info.exists();
    if (info.exists() && !info.isFile()) // a device or a pipe may have no end
        reply.error = "is no regular file";
    else if (info.size() > maximumSize)
        reply.error = tooLong;
    else if (device.open(QIODevice::ReadOnly))
        reply.text = device.readAll();
    if (device.error() != QFileDevice::NoError)
        reply.error = device.errorString();
    return reply;
}

} // namespace client
