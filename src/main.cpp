#include "driver/driver.h"

int main(int argc, char* argv[])
{
    return morvex(argc, argv);
}
