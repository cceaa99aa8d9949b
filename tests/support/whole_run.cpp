#include "support/whole_run.h"

#include <stdexcept>

#include "driver/conversion.h"
#include "driver/file_names.h"
#include "reader/control_flags.h"
#include "reader/run.h"
#include "support/environment.h"

bool RunOutputs::same_model(const RunOutputs& other) const
{
    return deck == other.deck && geometry == other.geometry && sets == other.sets &&
           accelerometers == other.accelerometers;
}

RunOutputs run_whole(std::string_view deck, const RunFlags& flags)
{
    set_variable("SOURCE_DATE_EPOCH", "1709640000");  // 2024-03-05: the main deck carries the day of the run
    reset_run();
    for (std::size_t i = 0; i < flags.size(); ++i) *control_flags[i].variable = flags[i];
    debflag = 1;
    if (!set_file_names("model.k")) throw std::runtime_error("the deck's name does not fit");

    RunOutputs outputs;
    OutputStream silent;
    silent.open(OutputStream::Sink{}, nullptr);
    warnings = &silent;
    outfile.open(outputs.log);
    keyword_of.open(outputs.keyword_copy);
    if (cardflag == 1) inpfile.open(outputs.deck);
    if (geomflag == 1) geomfile.open(outputs.geometry);
    if (setflag == 1) setfile.open(outputs.sets);
    if (accelflag == 1) accelfile.open(outputs.accelerometers);
    deck_source.use(deck);
    begin_conversion();
    convert_deck();
    for (OutputStream* const stream : {&outfile, &keyword_of, &inpfile, &geomfile, &setfile, &accelfile, &silent})
        stream->close();
    warnings = nullptr;
    reset_run();
    return outputs;
}
