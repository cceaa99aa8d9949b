// Variables of the environment, on every system.
#pragma once

#include <cstdlib>
#include <ctime>

// Sets the variable, or removes it when the value is null.
inline void set_variable(const char* name, const char* value)
{
#ifdef _WIN32
    _putenv_s(name, value != nullptr ? value : "");
#else
    if (value != nullptr)
        setenv(name, value, 1);
    else
        unsetenv(name);
#endif
}

// Takes the time zone of the variable TZ.
inline void take_time_zone()
{
#ifdef _WIN32
    _tzset();
#else
    tzset();
#endif
}
