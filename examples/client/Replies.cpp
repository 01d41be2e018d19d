#include "Replies.hpp"

#include <QFile>
#include <QNetworkReply>

#include <stdexcept>

namespace client {

void Replies::read(const QString& source, const QStringList& names, Receiver receiver) {
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

void Replies::get(const QString& address, Reply& reply) {
    constexpr qint64 maxBytes = 1LL << 28;
    QNetworkRequest request{QUrl(address)};
    request.setTransferTimeout(); // half a minute without a byte
    QNetworkReply* const answer = m_network.get(request);
    ++m_pending;
    QObject::connect(answer, &QNetworkReply::downloadProgress, answer, [answer](qint64 bytes) {
        if (bytes > maxBytes)
            answer->abort();
    });
    QObject::connect(answer, &QNetworkReply::finished, &m_network,
                     [this, answer, &reply] { finish(*answer, reply); });
}

void Replies::finish(QNetworkReply& answer, Reply& reply) {
    reply.text = answer.readAll();
    // An error reply may come with a status of failure. It says more than the status.
    const QString type = answer.header(QNetworkRequest::ContentTypeHeader).toString();
    if (answer.error() != QNetworkReply::NoError && !type.startsWith("application/json")) {
        reply.error = answer.errorString();
        reply.isMissing = answer.error() == QNetworkReply::ContentNotFoundError;
    }
    answer.deleteLater();
    if (--m_pending == 0)
        m_receiver(m_replies);
}

Reply readFile(const QString& file, const QString& name) {
    QFile device(file);
    Reply reply{name};
    reply.isMissing = !device.exists();
    if (device.open(QIODevice::ReadOnly))
        reply.text = device.readAll();
    if (device.error() != QFileDevice::NoError)
        reply.error = device.errorString();
    return reply;
}

std::string textOf(const Reply& reply) {
    if (!reply.error.isEmpty())
        throw std::runtime_error(reply.error.toStdString());
    return reply.text.toStdString();
}

} // namespace client
