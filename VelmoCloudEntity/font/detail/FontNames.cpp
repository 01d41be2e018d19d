#include <VelmoCloudEntity/font/detail/FontNames.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::text::TextSignature;

TextSignature FontNames::computeSignature(const FontItem& font) {
    TextSignature signature;
    const auto add = [&](const std::string& name) {
        m_name.assign(name);
        signature.add(m_name.folded());
    };
    add(font.ProductName());
    add(font.ProductSetName());
    add(font.ProductFileName());
    add(font.displayName());
    return signature;
}

} // namespace VelmoCloudEntity
