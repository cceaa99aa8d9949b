// All that lives as long as the run: the streams, the control flags, the current keyword line, what handlers collect,
// count and look up, and the faults of the surroundings. Only driver/ opens and closes streams and sets flags, names
// and faults; handlers read and print, and set what the paragraphs below give to them.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "reader/input_stream.h"
#include "reader/output_stream.h"

// The version that the main deck's header shows; the build reads it here, too.
inline constexpr double morvex_version = 2.601;

// ---- streams -------------------------------------------------------------------------------------------------------

inline constinit InputStream infile;       // what the passes read: the keyword copy, or the deck for sets and geometry
inline constinit InputStream infile_geom;  // the deck while the keyword copy is made
inline constinit OutputStream inpfile;     // main deck
inline constinit OutputStream geomfile;    // geometry file
inline constinit OutputStream setfile;     // set file
inline constinit OutputStream accelfile;   // accelerometer file
inline constinit OutputStream outfile;     // debug log
inline constinit OutputStream keyword_of;  // keyword copy while it is written

inline constinit TextSource deck_source;  // the deck, opened once
inline constinit TextSource copy_source;  // the keyword copy, once it is written

// Where the handlers' warnings go; null: to standard output, as in the program itself.
inline constinit OutputStream* warnings = nullptr;

inline constinit std::size_t stream_window = 262144;  // bytes of a deck in memory at a time

inline constinit KeywordIndex deck_index;  // keyword lines of the deck
inline constinit KeywordIndex copy_index;  // keyword lines of the keyword copy

// The current keyword line: upper case, without its newline, cut to 49 characters. Set by keyword().
inline constinit char cbuffer[50]{};

// ---- file names ----------------------------------------------------------------------------------------------------

inline constexpr char control_file_name[] = "input.morvex";
inline constexpr char debug_file_name[] = "debug.morvex";
inline constexpr char keyword_copy_name[] = "keywords.k";
inline constexpr char accel_file_name[] = "accel_def.kinc";

// The deck's name, at most 79 characters, and the names made from it: its base name and "card", "geom" or "sets".
struct FileNames {
    char deck[80];
    char card[88];
    char geom[88];
    char sets[88];
};
inline constinit FileNames file_names{};

// ---- control flags (see docs/guide.md for what each does) ----------------------------------------------------------

inline constinit int cardflag = 0;
inline constinit int setflag = 0;
inline constinit int geomflag = 0;
inline constinit int defflag = 0;
inline constinit int stndflag = 0;
inline constinit int contflag = 0;
inline constinit int icflag = 0;
inline constinit int lcflag = 0;
inline constinit int tranflag = 0;
inline constinit int amrflag = 0;
inline constinit int sphflag = 0;
inline constinit int plotflag = 0;
inline constinit int accelflag = 0;

// What two of them ask for; every section has the same two gates.
inline bool comprehensive()  // inactive settings and templates, too
{
    return defflag == 1;
}
inline bool standalone()  // no standards include file supplies the solver's settings
{
    return stndflag == 0;
}

inline constinit int debflag = 0;  // always 1: the debug log is always written
inline constinit int edflag = 0;   // 1: some material asks for element deletion; set by handlers, read by nothing

// ---- what the control pass collects --------------------------------------------------------------------------------

// Values of the *TITLE, *CONTROL and *DATABASE keywords. A default holds only when its keyword is absent: a blank field
// of a present card stores 0 over it.
struct RunSettings {
    char title[47] = " ";
    float q1 = 1.5f;         // quadratic bulk viscosity
    float q2 = 0.06f;        // linear bulk viscosity
    int qtype = 1;           // bulk viscosity type
    float slsfac = 0.1f;     // contact penalty scale factor
    int ihq = 2;             // hourglass type
    float qh = 0.1f;         // hourglass coefficient
    int soln = 0;            // solution type
    float endtim = 0.0f;     // termination time; collected only
    float dtinit = 0.0f;     // initial time step; collected only
    float tssfac = 0.6f;     // time step scale factor; collected only
    int lctm = 0;            // curve of the maximum time step
    float plot_dt = 0.0f;    // plot interval or its curve; collected only
    int plot_mode = 0;       // 0 constant interval, 1 interval by curve, 2 times by curve
    float hist_dt = 0.0f;    // time history interval
    int dump_cycles = 0;     // minus the cycles between restart dumps
    int rsf_cycles = 0;      // minus the cycles between running restart dumps
    int rsf_count = 0;       // number of running restart files; collected only
    int sph_boxid = 0;       // box outside of which particles are deactivated
    float sph_dt = 1.0e10f;  // death time of the deactivation
    float sph_start = 0.0f;  // its birth time
    float sph_maxv = 0.0f;   // deactivation velocity
    int sph_memory = 0;      // neighbours per particle
};
inline constinit RunSettings run_settings{};

// ---- running counts, which handlers keep ---------------------------------------------------------------------------

struct Counts {
    int contacts = 0;    // contact keywords converted
    int tied_nodes = 0;  // tied-node definitions written
    int node_sets = 0;
    int nodes = 0;
    int shells = 0;  // plain shells and shells with thickness
    int solids = 0;
    int particles = 0;
};
inline constinit Counts counts{};

// ---- what handlers look up in the whole keyword copy, once ---------------------------------------------------------

// The SECIDs of the *SECTION_SPH keywords, in ascending order.
inline constinit std::optional<std::vector<std::string>> particle_sections;

// The segment set that the blasts load, whether there is one at all, and the keyword line at which the search stopped.
struct BlastSegments {
    int ssid;
    bool found;
    char stopped_at[sizeof cbuffer];
};
inline constinit std::optional<BlastSegments> blast_segments;

// ---- the end of the run --------------------------------------------------------------------------------------------

// Where the main deck's particle count stands, which is known only at the end of the run. Set by the SPH section.
inline constinit std::uint64_t particle_count_position = 0;

// The files whose faults were told on standard error.
inline constinit std::vector<std::string> faulty_files;

// When the run began, for the progress line; the beginning of all time where none is wanted.
inline constinit std::chrono::steady_clock::time_point run_began{};

// Makes everything of the run as it is before a run: streams closed, flags 0, the rest at its defaults. The window, the
// way through bulk cards, the place of warnings and the clock stay as they are.
void reset_run();
