// The program with another window and with or without the quick way through bulk cards: its output must not change.
//     morvex_variant WINDOW FAST [ARGUMENT ...]
#include <cstdlib>

#include "driver/driver.h"
#include "reader/run.h"

int main(int argc, char* argv[])
{
    if (argc < 3) return 99;
    stream_window = static_cast<std::size_t>(std::strtoull(argv[1], nullptr, 10));
    fast_cards = std::atoi(argv[2]) != 0;
    return morvex(argc - 2, argv + 2);
}
