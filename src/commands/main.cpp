#include "commands/commands.h"

int main(int argc, char* argv[])
{
    return commands::morvex_deck(argc, argv);
}
