#include <VelmoCloudEntity/font/detail/FontNames.hpp>

namespace VelmoCloudEntity {

using PerchAppLibrary::text::TextSignature;

TextSignature FontNames::signatureOf(const FontItem& font) {
    TextSignature signature;
    for (const std::string* const name :
         {&font.ProductName(), &font.ProductSetName(), &font.ProductFileName(), &font.displayName()}) {
        m_name.assign(*name);
        signature.add(m_name.folded());
    }
    return signature;
}

} // namespace VelmoCloudEntity
