#include "driver/deck_file.h"

#include <cerrno>
#include <cstring>

#include "reader/run.h"

namespace
{
FileState state_by_name()
{
    return state_of(path_of(file_names.deck));
}
}  // namespace

bool DeckFile::open()
{
    errno = 0;
    file_ = open_to_read(path_of(file_names.deck));
    if (file_ == nullptr) return refuse(errno);
    opened_ = state_of(file_);
    named_ = state_by_name();
    if (named_.kind == FileState::Kind::folder) return refuse(EISDIR);
    if (named_.kind == FileState::Kind::other) return refuse(0);
    std::setvbuf(file_, nullptr, _IONBF, 0);  // the streams' windows are the buffers
    return deck_source.use(file_) || refuse(errno);
}

bool DeckFile::missing() const
{
    return error_ == ENOENT || error_ == ENOTDIR;
}

std::string DeckFile::failure() const
{
    return error_ != 0 ? std::strerror(error_) : "it is not a regular file";
}

bool DeckFile::changed() const
{
    return state_of(file_) != opened_ || state_by_name() != named_;
}

bool DeckFile::refuse(int error)
{
    error_ = error;
    close();
    return false;
}

void DeckFile::close()
{
    deck_source.close();
    if (file_ != nullptr) std::fclose(file_);
    file_ = nullptr;
}
