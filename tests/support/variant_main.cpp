// The program with another window: its output must not change.
//     morvex_variant WINDOW [ARGUMENT ...]
#include <cstdlib>

#include "driver/driver.h"
#include "reader/run.h"

int main(int argc, char* argv[])
{
    if (argc < 2) return 99;
    stream_window = static_cast<std::size_t>(std::strtoull(argv[1], nullptr, 10));
    return morvex(argc - 1, argv + 1);
}
