// Places in files beyond 2 GiB, which `long` does not hold everywhere.
#pragma once

#include <cstdint>
#include <cstdio>

// As fseek and ftell do.
inline int seek_file(std::FILE* file, std::int64_t offset, int origin)
{
#ifdef _WIN32
    return _fseeki64(file, offset, origin);
#else
    static_assert(sizeof(off_t) == sizeof offset);
    return fseeko(file, offset, origin);
#endif
}

inline std::int64_t tell_file(std::FILE* file)
{
#ifdef _WIN32
    return _ftelli64(file);
#else
    return ftello(file);
#endif
}
