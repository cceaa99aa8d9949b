#include "check/collector.h"

#include <tuple>

namespace check
{
void Collector::add(Finding found)
{
    if (!all_) {
        const auto [place, is_new] = kept_.try_emplace(found.code + std::to_string(found.block), to_->size());
        if (!is_new) {
            Finding& kept = (*to_)[place->second];
            const std::size_t others = kept.others + found.others + 1;
            const auto key = [](const Finding& of) { return std::tie(of.file_order, of.place.line, of.place.column); };
            if (key(found) < key(kept)) kept = std::move(found);
            kept.others = others;
            return;
        }
    }
    to_->push_back(std::move(found));
}
}  // namespace check
