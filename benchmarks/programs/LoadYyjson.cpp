#include "Loaders.hpp"

#include <yyjson.h>

#include <stdexcept>

namespace {

std::string_view viewOf(yyjson_val* text) { return {yyjson_get_str(text), yyjson_get_len(text)}; }

void read(yyjson_val* value, std::int64_t& field) { field = yyjson_get_sint(value); }
void read(yyjson_val* value, bool& field) { field = yyjson_get_bool(value); }
void read(yyjson_val* value, std::string& field) { field = viewOf(value); }
void read(yyjson_val* value, std::vector<std::int64_t>& field) {
    field.reserve(yyjson_arr_size(value));
    yyjson_arr_iter elements = yyjson_arr_iter_with(value);
    while (yyjson_val* const element = yyjson_arr_iter_next(&elements))
        field.push_back(yyjson_get_sint(element));
}

void read(yyjson_val* array, PlainFonts& fonts) {
    fonts.reserve(yyjson_arr_size(array));
    yyjson_arr_iter objects = yyjson_arr_iter_with(array);
    while (yyjson_val* const object = yyjson_arr_iter_next(&objects)) {
        auto font = std::make_shared<PlainFont>();
        yyjson_obj_iter members = yyjson_obj_iter_with(object);
        while (yyjson_val* const key = yyjson_obj_iter_next(&members))
            readMember(*font, viewOf(key),
                       [key](auto& field) { read(yyjson_obj_iter_get_val(key), field); });
        fonts.push_back(std::move(font));
    }
}

} // namespace

PlainFonts loadYyjson(std::string text) {
    const std::size_t length = text.size();
    text.append(YYJSON_PADDING_SIZE, '\0');
    yyjson_read_err error;
    const std::unique_ptr<yyjson_doc, decltype(&yyjson_doc_free)> document(
        yyjson_read_opts(text.data(), length, YYJSON_READ_INSITU, nullptr, &error),
        &yyjson_doc_free);
    if (document == nullptr)
        throw std::runtime_error(error.msg);
    PlainFonts fonts;
    read(yyjson_doc_get_root(document.get()), fonts);
    return fonts;
}
