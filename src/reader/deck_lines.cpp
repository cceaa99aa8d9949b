#include "reader/deck_lines.h"

void banner(OutputStream& stream, std::string_view title)
{
    text(stream, rule);
    text(stream, "! ");
    text(stream, title);
    text(stream, "\n");
    text(stream, rule);
}
