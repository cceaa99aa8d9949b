#include "reader/format.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

#ifndef __MINGW32__

int format_values(char* to, std::size_t room, const char* format, std::va_list values)
{
    return std::vsnprintf(to, room, format, values);
}

#else

#pragma GCC diagnostic ignored "-Wformat-nonliteral"

// The library's printf leaves out the sign of what is no number, so each value is written by itself.
int format_values(char* to, std::size_t room, const char* format, std::va_list values)
{
    std::size_t length = 0;
    const auto put = [&](const std::string& conversion, auto... value) {
        const std::size_t at = length < room ? length : room;
        length += static_cast<std::size_t>(std::snprintf(to + at, room - at, conversion.c_str(), value...));
    };
    for (std::string_view rest = format; !rest.empty();) {
        const std::size_t plain = rest.find('%');
        if (plain != 0) {
            put("%.*s", static_cast<int>(rest.substr(0, plain).size()), rest.data());
            rest.remove_prefix(rest.substr(0, plain).size());
            continue;
        }
        const std::size_t end = rest.find_first_not_of("-+ #0123456789.*l", 1);
        std::string conversion(rest.substr(0, end + 1));
        rest.remove_prefix(conversion.size());
        if (const std::size_t star = conversion.find('*'); star != std::string::npos)
            conversion.replace(star, 1, std::to_string(va_arg(values, int)));
        const char kind = conversion.back();
        if (kind == '%') {
            put("%s", "%");
        } else if (kind == 's') {
            put(conversion, va_arg(values, const char*));
        } else if (conversion.find("ll") != std::string::npos) {
            put(conversion, va_arg(values, long long));
        } else if (std::string_view("cidux").find(kind) != std::string_view::npos) {
            put(conversion, va_arg(values, int));
        } else if (const double value = va_arg(values, double); !std::isnan(value) || !std::signbit(value)) {
            put(conversion, value);
        } else {
            conversion.erase(std::min(conversion.find('.'), conversion.size() - 1));
            put(conversion + "s", "-nan");
        }
    }
    return static_cast<int>(length);
}

#endif
