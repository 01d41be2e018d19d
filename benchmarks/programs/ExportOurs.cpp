#include "ExportProgram.hpp"
#include "OurClient.hpp"

namespace {

std::string writeOurs(const VelmoCloudEntity::FontList& fonts) {
    return VelmoCloudEntity::FontItem::getFontArrayText(fonts.List());
}

} // namespace

int main(int argc, char** argv) { return runProgram(argc, argv, &runExport<loadOurs, writeOurs>); }
