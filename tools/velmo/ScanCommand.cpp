#include "Commands.hpp"
#include "FontFace.hpp"
#include "FontView.hpp"
#include "Terminal.hpp"

#include <CLI/App.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>

namespace velmo {
namespace {

namespace fs = std::filesystem;

struct ScanOptions {
    std::vector<std::string> folders;
    bool asJSON = false; // not read: the output is always JSON
};

bool hasFontExtension(const fs::path& file) {
    std::string extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char letter) { return std::tolower(letter); });
    constexpr const char* known[] = {".otc", ".otf", ".pfa",  ".pfb",  ".t1",
                                     ".ttc", ".ttf", ".woff", ".woff2"};
    return std::ranges::find(known, extension) != std::end(known);
}

/// Adds the font files in the folder and in the folders below it. Does not follow links to folders,
/// which may lead in a circle. Warns of a folder that cannot be read.
void addFiles(std::set<std::string>& files, const fs::path& folder) {
    std::error_code error;
    for (auto entry = fs::directory_iterator(folder, error); entry != fs::directory_iterator();
         entry.increment(error)) {
        std::error_code ignored; // of an entry that is gone: it is neither
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            addFiles(files, entry->path());
        else if (entry->is_regular_file(ignored) && hasFontExtension(entry->path()))
            files.insert(entry->path().string());
    }
    if (error)
        warn(fmt::format("warning: {}: cannot be read: {}", folder.string(), error.message()));
}

/// Returns why the file cannot be read. Empty if it can. Opens no FIFO, since that waits.
std::string reasonNotToRead(const std::string& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error))
        return "is no regular file";
    errno = 0;
    const std::ifstream stream(file);
    return stream ? "" : "cannot be read: " + std::generic_category().message(errno);
}

/// Returns the fonts in the files of the folders, or in files that are given themselves. Warns of
/// each file that cannot be read or is no font, and leaves it out.
std::vector<FontFace> facesBelow(const std::vector<std::string>& folders) {
    std::set<std::string> files; // folders may overlap
    for (const std::string& folder : folders) {
        std::error_code error;
        const fs::path path = fs::canonical(folder, error);
        if (error)
            throw Failure(folder + ": cannot be read: " + error.message());
        if (fs::is_directory(path, error))
            addFiles(files, path);
        else
            files.insert(path.string());
    }
    std::vector<FontFace> faces;
    for (const std::string& file : files) {
        std::string reason = reasonNotToRead(file);
        const auto inFile = reason.empty() ? facesIn(file) : std::vector<FontFace>();
        if (reason.empty() && inFile.empty())
            reason = "is damaged or no font";
        if (!reason.empty())
            warn("warning: " + file + ": " + reason + "; it is left out");
        faces.insert(faces.end(), inFile.begin(), inFile.end());
    }
    return faces;
}

std::shared_ptr<FontItem> makeFont(const FontFace& face, std::int64_t id) {
    auto font = FontItem::create({.id = id, .productName = face.fullName, .isPrivate = false});
    font->setProductSetName(face.family);
    font->setPostscriptName(face.postscriptName);
    font->setFormat(face.format);
    font->setVersion(face.version);
    font->setProductFileName(face.file); // its path, since the font is not online
    return font;
}

/// Returns one group for each family, in the order of their names. Fonts have the identifiers from
/// 1, then groups.
Fonts groupsOf(std::vector<FontFace> faces) {
    std::ranges::sort(faces);
    Fonts groups;
    std::int64_t id = 0;
    for (auto first = faces.begin(); first != faces.end();) {
        const auto last = std::find_if(first, faces.end(), [first](const FontFace& face) {
            return face.family != first->family;
        });
        Fonts children;
        std::transform(first, last, std::back_inserter(children),
                       [&id](const FontFace& face) { return makeFont(face, ++id); });
        auto group = FontItem::create({.groupTag = ""});
        group->setProductSetName(first->family);
        group->setChildren(std::move(children));
        groups.push_back(std::move(group));
        first = last;
    }
    for (const auto& group : groups)
        group->setId(++id);
    return groups;
}

ExitStatus scan(const ScanOptions& options) {
    const Fonts groups =
        groupsOf(options.folders.empty() ? installedFaces() : facesBelow(options.folders));
    printJSONText(FontItem::getFontArrayText(groups));
    return groups.empty() ? ExitStatus::nothingFound : ExitStatus::success;
}

} // namespace

void addScan(CLI::App& application, Action& selected) {
    auto [command, options] =
        addCommand(application, selected,
                   {.name = "scan",
                    .description = "Print the fonts of this machine or of folders as a font list",
                    .example = "velmo scan | velmo tree -",
                    .statusOne = "no font found",
                    .statusTwo = "wrong usage, a folder or file that is not there"},
                   &scan);
    command
        .add_option("DIR", options.folders,
                    "Folders to look in and below; without one, the fonts that are installed")
        ->type_name(folderType);
}

} // namespace velmo
