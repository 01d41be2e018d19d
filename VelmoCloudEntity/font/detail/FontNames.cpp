#include <VelmoCloudEntity/font/detail/FontNames.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::text::TextSignature;

TextSignature FontNames::computeSignature(const FontItem& font) {
    TextSignature signature;
    const auto add = [&](const std::string& name) {
        const bool isASCII = signature.addASCII(name);
        if (!isASCII) {
            m_name.assign(name);
            signature.add(m_name);
        }
        return isASCII;
    };
    const std::string& name = font.ProductName();
    const std::string& setName = font.ProductSetName();
    if (!add(name) || !name.starts_with(setName)) // else the name has all its pairs
        add(setName);
    add(font.ProductFileName());
    add(font.displayName());
    return signature;
}

} // namespace VelmoCloudEntity
