// For a build without fontconfig.
#include "FontFace.hpp"

#include "ExitStatus.hpp"

namespace velmo {

std::vector<FontFace> installedFaces() {
    throw Failure("scan: this velmo was built without fontconfig, which reads the fonts");
}

std::vector<FontFace> facesIn(const std::string&) { return installedFaces(); }

} // namespace velmo
