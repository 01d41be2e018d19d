#pragma once

#include "PlainFont.hpp"

#include <glaze/glaze.hpp>

/// Leaves out of an export what the library leaves out.
template <>
struct glz::meta<PlainFont> {
    static constexpr bool skip(std::string_view key, const meta_context& context) {
        return context.op == operation::serialize &&
               (key == "displayName" || key == "previewText" || key == "isActivated");
    }
};
