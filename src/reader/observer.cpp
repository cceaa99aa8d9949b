#include "reader/observer.h"

void Watched::tell() const
{
    infile.back();
    const Position last = infile.position();
    const bool line_ended = infile.next() == '\n';
    observer->text_read(begin_, line_ended ? last : last + 1);
}
