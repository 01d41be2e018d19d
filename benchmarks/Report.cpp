#include "Report.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

std::string markdownOf(const std::vector<Median>& medians) {
    std::string table =
        "| work | fonts | side | ms | its time / ours | bytes/font | our bytes / its | "
        "peak MB |\n"
        "|---|---:|---|---:|---:|---:|---:|---:|\n";
    const Median* ours = nullptr;
    for (const Median& median : medians) {
        if (ours == nullptr || ours->work != median.work || ours->fonts != median.fonts)
            ours = &median;
        table +=
            fmt::format("| {} | {} | {} | {:.2f} | {:.2f} |", median.work, median.fonts,
                        median.side, median.milliseconds, median.milliseconds / ours->milliseconds);
        if (median.bytesPerFont > 0)
            table += fmt::format(" {:.0f} | {:.2f} |", median.bytesPerFont,
                                 ours->bytesPerFont / median.bytesPerFont);
        else
            table += " | |";
        if (median.peakMegabytes > 0)
            table += fmt::format(" {:.0f} |\n", median.peakMegabytes);
        else
            table += " |\n";
    }
    return table;
}

std::string jsonOf(const std::vector<Median>& medians) {
    boost::json::array array;
    for (const Median& median : medians)
        array.push_back(boost::json::object{{"work", median.work},
                                            {"fonts", median.fonts},
                                            {"side", median.side},
                                            {"milliseconds", median.milliseconds},
                                            {"bytesPerFont", median.bytesPerFont},
                                            {"peakMegabytes", median.peakMegabytes}});
    return boost::json::serialize(array) + "\n";
}
