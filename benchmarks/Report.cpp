#include "Report.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace {

constexpr double width = 820;
constexpr const char* style = "font-family='sans-serif' font-size='13'";

/// Returns the medians of one kind of work.
std::vector<Median> ofWork(const std::vector<Median>& medians, const std::string& work) {
    std::vector<Median> found;
    std::ranges::copy_if(medians, std::back_inserter(found),
                         [&work](const Median& median) { return median.work == work; });
    return found;
}

double fontsPerSecond(const Median& median) {
    return static_cast<double>(median.fonts) * 1e3 / median.milliseconds;
}

double nanosecondsPerFont(const Median& median) {
    return median.milliseconds * 1e6 / static_cast<double>(median.fonts);
}

std::string svgOf(double height, const std::string& title, const std::string& content) {
    return fmt::format("<svg xmlns='http://www.w3.org/2000/svg' width='{0}' height='{1}' "
                       "viewBox='0 0 {0} {1}' {2}>\n"
                       "<rect width='100%' height='100%' fill='white'/>\n"
                       "<text x='16' y='26' font-weight='bold'>{3}</text>\n{4}</svg>\n",
                       width, height, style, title, content);
}

} // namespace

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

std::string throughputChartOf(const std::vector<Median>& medians, const std::string& work) {
    std::vector<Median> sides = ofWork(medians, work);
    std::vector<std::int64_t> sizes(sides.size());
    std::ranges::transform(sides, sizes.begin(), &Median::fonts);
    std::ranges::sort(sizes);
    if (sizes.empty())
        return {};
    const std::int64_t size = sizes[sizes.size() / 2];
    std::erase_if(sides, [size](const Median& side) { return side.fonts != size; });
    const double most = fontsPerSecond(std::ranges::max(sides, {}, fontsPerSecond));
    constexpr double left = 220;
    constexpr double row = 30;
    double y = 46;
    std::string bars;
    for (const Median& side : sides) {
        const double length = fontsPerSecond(side) / most * (width - left - 90);
        bars += fmt::format("<text x='{}' y='{}' text-anchor='end'>{}</text>"
                            "<rect x='{}' y='{}' width='{:.1f}' height='20' fill='{}'/>"
                            "<text x='{:.1f}' y='{}'>{:.0f}</text>\n",
                            left - 8, y + 15, side.side, left, y, length,
                            &side == sides.data() ? "#2266aa" : "#99aabb", left + length + 6,
                            y + 15, fontsPerSecond(side) / 1e3);
        y += row;
    }
    return svgOf(y + 10, fmt::format("{} of {} fonts: thousands of fonts per second", work, size),
                 bars);
}

std::string growthChartOf(const std::vector<Median>& medians, const std::string& work) {
    const std::vector<Median> points = ofWork(medians, work);
    std::map<std::string, std::vector<Median>> sides;
    for (const Median& point : points)
        sides[point.side].push_back(point);
    if (points.empty())
        return {};
    const auto [fewest, most] = std::ranges::minmax(points, {}, &Median::fonts);
    const auto [fastest, slowest] = std::ranges::minmax(points, {}, nanosecondsPerFont);
    // Both axes are logarithmic.
    const auto place = [](double value, double from, double to) {
        return from == to ? 0.5 : std::log(value / from) / std::log(to / from);
    };
    const auto x = [&, from = fewest.fonts, to = most.fonts](const Median& point) {
        return 80 + 380 * place(static_cast<double>(point.fonts), static_cast<double>(from),
                                static_cast<double>(to));
    };
    const auto y = [&, from = nanosecondsPerFont(fastest),
                    to = nanosecondsPerFont(slowest)](const Median& point) {
        return 330 - 260 * place(nanosecondsPerFont(point), from, to);
    };
    static constexpr const char* colours[] = {"#aa3377", "#66ccee", "#228833", "#ccbb44",
                                              "#ee6677", "#2266aa", "#888888", "#994400",
                                              "#003355", "#77bb99"};
    std::string lines;
    std::multimap<double, std::string> labels; // by y coordinate
    std::size_t index = 0;
    for (const auto& [side, ofSide] : sides) {
        const char* const colour = colours[index++ % std::size(colours)];
        std::string path;
        for (const Median& point : ofSide) {
            path += fmt::format("{:.1f},{:.1f} ", x(point), y(point));
            lines += fmt::format("<circle cx='{:.1f}' cy='{:.1f}' r='3' fill='{}'/>\n", x(point),
                                 y(point), colour);
        }
        lines += fmt::format("<polyline points='{}' fill='none' stroke='{}' stroke-width='2'/>\n",
                             path, colour);
        labels.emplace(y(ofSide.back()) + 4, fmt::format("fill='{}'>{}: {:.0f} to {:.0f}", colour,
                                                         side, nanosecondsPerFont(ofSide.front()),
                                                         nanosecondsPerFont(ofSide.back())));
    }
    double height = 0;
    for (const auto& [wanted, label] : labels) {
        height = std::max(wanted, height + 18); // at least one line below the label above
        lines += fmt::format("<text x='475' y='{:.1f}' {}</text>\n", height, label);
    }
    for (const Median& point : sides.begin()->second)
        lines += fmt::format("<text x='{:.1f}' y='384' text-anchor='middle'>{} fonts</text>\n",
                             x(point), point.fonts);
    return svgOf(400, fmt::format("{}: nanoseconds per font (both axes logarithmic)", work), lines);
}
