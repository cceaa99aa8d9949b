// A conversion with its ledger, inside the test's own process.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "driver/control_file.h"
#include "driver/conversion.h"
#include "driver/file_names.h"
#include "prepare/prepare.h"
#include "reader/control_flags.h"
#include "reader/run.h"
#include "report/account.h"
#include "report/make_ledger.h"
#include "support/convert.h"
#include "support/whole_run.h"

// A file that a stream writes and reads back.
class OpenFile
{
public:
    explicit OpenFile(const std::filesystem::path& path) : file_(std::fopen(path.c_str(), "w+b"))
    {
        if (file_ == nullptr) throw std::runtime_error(path.string());
    }
    ~OpenFile() { std::fclose(file_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    [[nodiscard]] std::FILE* get() const { return file_; }

private:
    std::FILE* file_;
};

inline ControlFile control_of(const RunFlags& flags, const std::string& deck)
{
    ControlFile control;
    for (std::size_t i = 0; i < flags.size(); ++i) control.values[i] = flags[i];
    control.sourcefile = deck;
    return control;
}

// The run as the program makes it, in a folder that holds the deck; what is to watch it is the observer.
inline void run_in(const std::filesystem::path& folder, const std::string& name, const ControlFile& control)
{
    setenv("SOURCE_DATE_EPOCH", "1709640000", 1);  // the main deck carries the day of the run
    reset_run();
    take_settings(control);
    if (!set_file_names(name)) throw std::runtime_error("the deck's name does not fit");
    if (!deck_source.open((folder / name).c_str())) throw std::runtime_error("no deck " + name);
    OutputStream silent;
    silent.open(OutputStream::Sink{}, nullptr);
    warnings = &silent;
    const OpenFile copy(folder / keyword_copy_name);
    keyword_of.open(copy.get());
    outfile.open((folder / debug_file_name).c_str());
    if (cardflag == 1) inpfile.open((folder / file_names.card).c_str());
    if (geomflag == 1) geomfile.open((folder / file_names.geom).c_str());
    if (setflag == 1) setfile.open((folder / file_names.sets).c_str());
    if (accelflag == 1) accelfile.open((folder / accel_file_name).c_str());
    begin_conversion();
    convert_deck();
    warnings = nullptr;
    reset_run();
}

// Prepares the deck, or copies it, into the folder, under its own name or another, converts it there and accounts for
// all of it.
inline report::Ledger account_for(const std::filesystem::path& deck, const std::filesystem::path& folder,
                                  const RunFlags& flags = every_output, bool prepare = true, std::string name = {})
{
    if (name.empty()) name = deck.filename().string();
    std::filesystem::create_directories(folder);
    report::Conversion conversion{deck, folder, name, control_of(flags, name)};
    write_file(folder / control_file_name, control_file_text(conversion.settings));
    report::Origins origins;
    prepare::Summary summary;
    std::vector<deck::SourceFile> sources;
    if (prepare) {
        const prepare::Preparation preparation(deck);
        std::ofstream stream(folder / name, std::ios::binary);
        summary = preparation.write(stream, {false, origins.taker()});
        sources = preparation.files();
        conversion.origins = &origins;
        conversion.not_carried = &summary.not_carried;
        conversion.sources = &sources;
    } else {
        std::filesystem::copy_file(deck, folder / name, std::filesystem::copy_options::overwrite_existing);
    }
    report::Account account;
    observer = &account;
    run_in(folder, name, conversion.settings);
    observer = nullptr;
    return make_ledger(account, conversion);
}
