#include "Replies.hpp"

#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <PerchAppLibrary/BaseEntity.hpp>

#include <QFile>
#include <QNetworkReply>

namespace client {

using PerchAppLibrary::JSON;

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

JSON documentOf(const Reply& reply) {
    constexpr JSON::Limits limits{.elements = 8'000'000}; // records of more would take gigabytes
    std::string error = reply.error.toStdString();
    try {
        if (error.empty()) {
            JSON document = JSON::parse(reply.text.toStdString(), limits);
            error = errorOf(document);
            if (error.empty())
                return document;
        }
    } catch (const JSON::ParseError& malformed) {
        error = malformed.what();
    }
    throw std::runtime_error(error);
}

std::string errorOf(const JSON& reply) {
    PerchAppLibrary::BaseEntity record;
    record.setValue(reply);
    const std::string& code = record.ExceptionCode();
    if (!record.Exception() && code.empty())
        return "";
    const VelmoCloudEntity::ExceptionItem errors;
    const auto known = errors.Dict().find(code);
    if (known == errors.Dict().end())
        return "error " + code + ": " + record.ExceptionMessage();
    const auto& messages = known->second->msgDict();
    return "error " + code + ": " + messages.at("Ch") + " / " + messages.at("En");
}

} // namespace client
