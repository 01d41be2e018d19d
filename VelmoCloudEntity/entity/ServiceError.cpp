#include <VelmoCloudEntity/entity/ServiceError.hpp>

#include <VelmoCloudEntity/entity/ExceptionItem.hpp>

#include <PerchAppLibrary/container/NoDestructor.hpp>

namespace VelmoCloudEntity {

std::string ServiceError::text(std::string_view language) const {
    static const PerchAppLibrary::NoDestructor<ExceptionItem> errors(ExceptionItem{});
    const auto known = (*errors).Dict().find(code);
    if (known == (*errors).Dict().end())
        return message;
    const auto& texts = known->second->msgDict();
    const auto found = texts.find(std::string(language));
    return found == texts.end() || found->second.empty() ? message : found->second;
}

std::optional<ServiceError> serviceError(const PerchAppLibrary::BaseEntity& record) {
    const std::int64_t number = record.ErrorCode();
    std::string code = record.ExceptionCode();
    if (!record.Exception() && number == 0 && code.empty() && record.ExceptionMessage().empty())
        return std::nullopt;
    if (code.empty() && number != 0) {
        constexpr std::size_t codeSize = 6;
        code = std::to_string(number);
        if (number > 0 && code.size() < codeSize)
            code.insert(0, codeSize - code.size(), '0');
    }
    return ServiceError{std::move(code), record.ExceptionMessage()};
}

std::optional<ServiceError> serviceError(const PerchAppLibrary::JSON& reply) {
    PerchAppLibrary::BaseEntity record;
    record.setValue(reply);
    return serviceError(record);
}

} // namespace VelmoCloudEntity
