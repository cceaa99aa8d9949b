#include "prepare/output.h"

#include <ostream>
#include <utility>

namespace prepare
{

namespace
{
constexpr std::size_t buffer_size = 1 << 18;
}

Output::Output(std::ostream& stream, ChangeReport report) : stream_(&stream), report_(std::move(report))
{
    buffer_.reserve(buffer_size);
}

void Output::line(std::string_view text)
{
    if (buffer_.size() + text.size() + 1 > buffer_size) flush();
    buffer_ += text;
    buffer_ += '\n';
    ++lines_;
}

void Output::flush()
{
    stream_->write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
}

void Output::change(Change change)
{
    const auto known = changes_.find(change.code);
    if (known != changes_.end())
        ++known->second;
    else
        changes_.emplace(change.code, 1);
    change.line_in_output = lines_ + 1;
    if (report_) report_(change);
}

}  // namespace prepare
