// printf, with the same bytes on every system.
#pragma once

#include <cstdarg>
#include <cstddef>

// As vsnprintf does. Values are int, long long, double and const char*, and a width may be "*".
[[gnu::format(printf, 3, 0)]] int format_values(char* to, std::size_t room, const char* format, std::va_list values);
