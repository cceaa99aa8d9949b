// The table of card layouts, by families. Its rows follow what the handlers read, card by card.
#include <cmath>
#include <initializer_list>

#include "deck/layout.h"
#include "reader/numbers.h"

namespace deck
{

namespace
{

// ---- fields --------------------------------------------------------------------------------------------------------

constexpr Field integer(std::string_view name)
{
    return {.name = name, .kind = Kind::integer};
}

constexpr Field real(std::string_view name)
{
    return {.name = name, .kind = Kind::real};
}

// A number that refers to something.
constexpr Field ref(std::string_view name, Names names)
{
    return {.name = name, .kind = Kind::integer, .names = names};
}

constexpr Field ref_by(std::string_view name, Names (*by_type)(const GroupValues&))
{
    return {.name = name, .kind = Kind::integer, .by_type = by_type};
}

// A number that defines something.
constexpr Field def(std::string_view name, Names names)
{
    return {.name = name, .kind = Kind::integer, .names = names, .defines = true};
}

// The same, carried as text.
constexpr Field word(std::string_view name, Names names = Names::nothing)
{
    return {.name = name, .kind = Kind::word, .names = names};
}

constexpr Field word_def(std::string_view name, Names names)
{
    return {.name = name, .kind = Kind::word, .names = names, .defines = true};
}

constexpr Field text(std::string_view name, std::uint8_t width = 80)
{
    return {.name = name, .width = width, .kind = Kind::text};
}

// Columns that mean nothing, but are read.
constexpr Field no_meaning{.name = "", .kind = Kind::integer};

constexpr Field wide(Field field, std::uint8_t width)
{
    field.width = width;
    return field;
}

constexpr Field in_64_bits(Field field)
{
    field.kind = Kind::integer64;
    return field;
}

constexpr Field not_read(Field field)
{
    field.converted = false;
    return field;
}

// A card of a block that the converter skips, or that it does not look at.
constexpr CardLayout skipped_card(std::string_view name, std::span<const Field> fields, Occurs occurs = Occurs::always)
{
    return {.name = name, .fields = fields, .occurs = occurs, .converted = false};
}

constexpr CardLayout option_card(std::string_view option, std::string_view name, std::span<const Field> fields)
{
    return {.name = name, .fields = fields, .converted = false, .option = option};
}

// Cards of which only their being there is known.
constexpr CardLayout further_cards{.name = "", .fields = {}, .occurs = Occurs::to_the_end, .converted = false};

constexpr Field title_fields[] = {text("title")};
constexpr Field id_fields[] = {integer("id"), text("heading", 70)};

// ---- settings ------------------------------------------------------------------------------------------------------

constexpr CardLayout title_cards[] = {{"1", title_fields}};

constexpr Field viscosity_1[] = {real("q1"), real("q2"), integer("type"), not_read(integer("btype")),
                                 not_read(integer("tstype"))};
constexpr CardLayout viscosity_cards[] = {{"1", viscosity_1}};

constexpr Field control_contact_1[] = {real("slsfac"),    real("rwpnal"),    integer("islchk"), integer("shlthk"),
                                       integer("penopt"), integer("thkchg"), integer("orien"),  integer("enmass")};
constexpr Field control_contact_2[] = {integer("usrstr"), integer("usrfrc"), integer("nsbcs"), integer("interm"),
                                       real("xpene"),     integer("ssthk"),  integer("ecdt"),  integer("tiedprj")};
constexpr Field control_contact_3[] = {real("sfric"), real("dfric"), real("edc"),    real("vfc"),
                                       real("th"),    real("th_sf"), real("pen_sf"), real("ptscl")};
constexpr Field control_contact_4[] = {integer("ignore"),  integer("frceng"),  integer("skiprwg"), integer("outseg"),
                                       integer("spotstp"), integer("spotdel"), real("spothin"),    integer("dir_tie")};
constexpr Field control_contact_5[] = {integer("isym"), integer("nserod"), integer("rwgaps"), real("rwgdth"),
                                       real("rwksf"),   integer("icov"),   real("swradf"),    integer("ithoff")};
constexpr Field control_contact_6[] = {integer("shledg"), integer("pstiff"), integer("ithcnt"), integer("tdcnof"),
                                       integer("ftall"),  integer("unused"), real("shltrw"),    integer("igactc")};
constexpr CardLayout control_contact_cards[] = {
    {"1", control_contact_1},
    {"2", control_contact_2},
    skipped_card("3", control_contact_3, Occurs::when_more),
    skipped_card("4", control_contact_4, Occurs::when_more),
    skipped_card("5", control_contact_5, Occurs::when_more),
    skipped_card("6", control_contact_6, Occurs::when_more),
};

constexpr Field control_hourglass_1[] = {integer("ihq"), real("qh")};
constexpr CardLayout control_hourglass_cards[] = {{"1", control_hourglass_1}};

constexpr Field solution_1[] = {integer("soln"), integer("nlq"), integer("isnan"), integer("lcint"),
                                not_read(integer("lcacc"))};
constexpr CardLayout solution_cards[] = {{"1", solution_1}};

constexpr Field termination_1[] = {real("endtim"), integer("endcyc"), real("dtmin"),
                                   real("endeng"), real("endmas"),    not_read(integer("nosol"))};
constexpr CardLayout termination_cards[] = {{"1", termination_1}};

// lctm is a curve, but read as a real.
constexpr Field timestep_1[] = {real("dtinit"),   real("tssfac"),
                                integer("isdo"),  real("tslimt"),
                                real("dt2ms"),    {.name = "lctm", .kind = Kind::real, .names = Names::curve},
                                integer("erode"), integer("ms1st")};
constexpr Field timestep_2[] = {real("dt2msf"),    ref("dt2mslc", Names::curve),
                                integer("imscl"),  integer("unused"),
                                integer("unused"), real("rmscl"),
                                real("emscl"),     integer("ihdo")};
constexpr CardLayout timestep_cards[] = {{"1", timestep_1}, skipped_card("2", timestep_2, Occurs::when_more)};

constexpr Field control_sph_1[] = {integer("ncbs"),   ref("boxid", Names::box), real("dt"),    integer("idim"),
                                   integer("memory"), integer("form"),          real("start"), real("maxv")};
constexpr Field control_sph_2[] = {integer("cont"),  integer("deriv"), integer("ini"),   integer("ishow"),
                                   integer("ierod"), integer("icont"), integer("iavis"), integer("isymp")};
constexpr Field control_sph_3[] = {integer("ithk"),   integer("istab"),   real("ql"),
                                   integer("unused"), integer("sphsort"), integer("ishift")};
constexpr CardLayout control_sph_cards[] = {{"1", control_sph_1},
                                            skipped_card("2", control_sph_2, Occurs::when_more),
                                            skipped_card("3", control_sph_3, Occurs::when_more)};

constexpr Field database_1[] = {real("dt"),       integer("binary"), ref("lcur", Names::curve),
                                integer("ioopt"), real("dthf"),      integer("binhf")};
constexpr CardLayout database_cards[] = {{"1", database_1}};

constexpr Field dump_1[] = {integer("cycl"), ref("lcdt", Names::curve), integer("beam"), integer("npltc"),
                            ref("psetid", Names::part_set)};
constexpr CardLayout dump_cards[] = {{"1", dump_1}};

constexpr Field plot_1[] = {real("dt"), ref("lcdt", Names::curve), integer("beam"), integer("npltc"),
                            ref("psetid", Names::part_set)};
constexpr Field plot_2[] = {integer("ioopt"),          not_read(real("rate")),
                            not_read(real("cutoff")),  not_read(real("window")),
                            not_read(integer("type")), not_read(ref("pset", Names::part_set))};
constexpr CardLayout plot_cards[] = {{"1", plot_1}, {"2", plot_2, Occurs::when_more}};

constexpr Field runrsf_1[] = {integer("cycl"), integer("nr"), integer("beam"), integer("npltc"),
                              ref("psetid", Names::part_set)};
constexpr CardLayout runrsf_cards[] = {{"1", runrsf_1}};

// Eight numbers a card that name things of one kind.
template <Names names>
constexpr Field eight_of[] = {ref("id1", names), ref("id2", names), ref("id3", names), ref("id4", names),
                              ref("id5", names), ref("id6", names), ref("id7", names), ref("id8", names)};
constexpr Field eight_nodes[] = {ref("nid1", Names::node), ref("nid2", Names::node), ref("nid3", Names::node),
                                 ref("nid4", Names::node), ref("nid5", Names::node), ref("nid6", Names::node),
                                 ref("nid7", Names::node), ref("nid8", Names::node)};
constexpr Field eight_parts[] = {ref("pid1", Names::part), ref("pid2", Names::part), ref("pid3", Names::part),
                                 ref("pid4", Names::part), ref("pid5", Names::part), ref("pid6", Names::part),
                                 ref("pid7", Names::part), ref("pid8", Names::part)};
template <Names names>
constexpr Field eight_elements[] = {ref("eid1", names), ref("eid2", names), ref("eid3", names), ref("eid4", names),
                                    ref("eid5", names), ref("eid6", names), ref("eid7", names), ref("eid8", names)};
template <Names names>
constexpr CardLayout history_cards[] = {{"ids", eight_of<names>, Occurs::to_the_end}};

// ---- contact -------------------------------------------------------------------------------------------------------

// What a side of a contact is, by sstyp or mstyp.
Names contact_side(double type)
{
    switch (to_int(type)) {
    case 0:
        return Names::segment_set;
    case 1:
        return Names::shell_set;
    case 2:
    case 6:
        return Names::part_set;
    case 3:
        return Names::part;
    case 4:
        return Names::node_set;
    default:
        return Names::nothing;
    }
}
Names slave_side(const GroupValues& values)
{
    return contact_side(values.of(0, 2));
}
Names master_side(const GroupValues& values)
{
    return contact_side(values.of(0, 3));
}

constexpr Field contact_1[] = {
    ref_by("ssid", slave_side), ref_by("msid", master_side), integer("sstyp"), integer("mstyp"),
    ref("sboxid", Names::box),  ref("mboxid", Names::box),   integer("spr"),   integer("mpr")};
constexpr Field contact_2[] = {real("fs"),  real("fd"),        real("dc"), real("vc"),
                               real("vdc"), integer("penchk"), real("bt"), real("dt")};
constexpr Field contact_3[] = {real("sfs"),  real("sfm"),  real("sst"), real("mst"),
                               real("sfst"), real("sfmt"), real("fsf"), real("vsf")};
constexpr Field contact_erosion[] = {integer("isym"), integer("erosop"), integer("iadj")};
constexpr Field contact_a[] = {integer("soft"),  real("sofscl"),   ref("lcidab", Names::curve),
                               real("maxpar"),   real("sbopt"),    integer("depth"),
                               integer("bsort"), integer("frcfrq")};
constexpr Field contact_b[] = {real("penmax"),  integer("thkopt"), integer("shlthk"), integer("snlog"),
                               integer("isym"), integer("i2d3d"),  real("sldthk"),    real("sldstf")};
constexpr Field contact_c[] = {integer("igap"), integer("ignore"), real("dprfac"), real("dtstif"),
                               real("edgek"),   integer("unused"), real("flangl"), integer("cid_rcf")};
constexpr Field contact_d[] = {integer("q2tri"), integer("dtpchk"), real("sfnbr"),     real("fnlscl"),
                               real("dnlscl"),   integer("tcso"),   integer("tiedid"), integer("shledg")};
constexpr Field contact_e[] = {integer("sharec"), integer("cparm8"), integer("ipback"), integer("srnde"),
                               real("fricsf"),    integer("icor"),   real("ftorq"),     integer("region")};
constexpr CardLayout contact_cards[] = {
    {"1", contact_1},
    {"2", contact_2},
    {"3", contact_3},
    {"a", contact_a, Occurs::when_more},
    skipped_card("b", contact_b, Occurs::when_more),
    skipped_card("c", contact_c, Occurs::when_more),
    skipped_card("d", contact_d, Occurs::when_more),
    skipped_card("e", contact_e, Occurs::when_more),
};
constexpr CardLayout eroding_contact_cards[] = {
    {"1", contact_1},
    {"2", contact_2},
    {"3", contact_3},
    {"4", contact_erosion},
    {"a", contact_a, Occurs::when_more},
    skipped_card("b", contact_b, Occurs::when_more),
    skipped_card("c", contact_c, Occurs::when_more),
    skipped_card("d", contact_d, Occurs::when_more),
    skipped_card("e", contact_e, Occurs::when_more),
};

// ---- boundary conditions -------------------------------------------------------------------------------------------

constexpr Field non_reflecting_1[] = {ref("ssid", Names::segment_set), real("ad"), real("as")};
constexpr CardLayout non_reflecting_cards[] = {{"1", non_reflecting_1}};

std::size_t motion_has_offset(const GroupValues& values)
{
    return std::abs(values.of(0, 1)) > 8 || values.of(0, 2) >= 4 ? 1 : 0;
}
template <Names target>
constexpr Field motion_1[] = {
    ref("typeid", target),     integer("dof"), integer("vad"), ref("lcid", Names::curve), real("sf"),
    ref("vid", Names::vector), real("death"),  real("birth")};
constexpr Field motion_2[] = {real("offset1"), real("offset2"), integer("mrb"), ref("node1", Names::node),
                              ref("node2", Names::node)};
template <Names target>
constexpr CardLayout motion_cards[] = {{"1", motion_1<target>}, {"2", motion_2, Occurs::counted, motion_has_offset}};

template <Names target>
constexpr Field spc_1[] = {ref(target == Names::node ? "nid" : "nsid", target),
                           ref("cid", Names::coordinate_system),
                           integer("dofx"),
                           integer("dofy"),
                           integer("dofz"),
                           integer("dofrx"),
                           integer("dofry"),
                           integer("dofrz")};
template <Names target>
constexpr CardLayout spc_cards[] = {{"1", spc_1<target>}};

constexpr Field sph_plane_1[] = {real("vtx"), real("vty"), real("vtz"), real("vhx"), real("vhy"), real("vhz")};
constexpr CardLayout sph_plane_cards[] = {{"1", sph_plane_1}};

constexpr Field symmetry_failure_1[] = {ref("ssid", Names::segment_set),
                                        real("fs"),
                                        real("vtx"),
                                        real("vty"),
                                        real("vtz"),
                                        real("vhx"),
                                        real("vhy"),
                                        real("vhz")};
constexpr CardLayout symmetry_failure_cards[] = {{"1", symmetry_failure_1}};

// ---- boxes, coordinate systems, curves -----------------------------------------------------------------------------

constexpr Field box_1[] = {
    def("boxid", Names::box), real("xmn"), real("xmx"), real("ymn"), real("ymx"), real("zmn"), real("zmx"), no_meaning};
constexpr CardLayout box_cards[] = {{"1", box_1}};

constexpr Field adaptive_box_2[] = {ref("pid", Names::part),   integer("level"),          not_read(integer("lidx")),
                                    not_read(integer("lidy")), not_read(integer("lidz")), not_read(real("brmin")),
                                    not_read(real("brmax"))};
constexpr CardLayout adaptive_box_cards[] = {{"1", box_1}, {"2", adaptive_box_2}};

constexpr Field coarsen_box_1[] = {
    def("boxid", Names::box), real("xmn"), real("xmx"), real("ymn"), real("ymx"), real("zmn"), real("zmx"),
    integer("iflag")};
constexpr CardLayout coarsen_box_cards[] = {{"1", coarsen_box_1}};

constexpr Field sph_box_1[] = {
    def("boxid", Names::box), real("xmn"), real("xmx"), real("ymn"), real("ymx"), real("zmn"), real("zmx"),
    ref("vid", Names::vector)};
constexpr Field sph_box_2[] = {ref("lcid", Names::curve),         integer("vd"),
                               not_read(ref("nid", Names::node)), not_read(integer("ireact")),
                               not_read(integer("ibuff")),        not_read(integer("ishow")),
                               not_read(ref("pid", Names::part))};
constexpr CardLayout sph_box_cards[] = {{"1", sph_box_1}, {"2", sph_box_2}};

constexpr Field coordinate_nodes_1[] = {def("cid", Names::coordinate_system),
                                        ref("n1", Names::node),
                                        ref("n2", Names::node),
                                        ref("n3", Names::node),
                                        integer("flag"),
                                        word("dir")};
constexpr CardLayout coordinate_nodes_cards[] = {{"1", coordinate_nodes_1}};

constexpr Field coordinate_system_1[] = {def("cid", Names::coordinate_system),
                                         real("xo"),
                                         real("yo"),
                                         real("zo"),
                                         real("xl"),
                                         real("yl"),
                                         real("zl"),
                                         not_read(ref("cidl", Names::coordinate_system))};
constexpr Field coordinate_system_2[] = {real("xp"), real("yp"), real("zp")};
constexpr CardLayout coordinate_system_cards[] = {{"1", coordinate_system_1}, {"2", coordinate_system_2}};

constexpr Field curve_1[] = {
    def("lcid", Names::curve), integer("sidr"),           real("sfa"), real("sfo"), real("offa"), real("offo"),
    integer("dattyp"),         not_read(integer("lcint"))};
constexpr Field curve_point[] = {wide(real("a1"), 20), wide(real("o1"), 20)};
constexpr CardLayout curve_cards[] = {{"1", curve_1}, {"points", curve_point, Occurs::to_the_end}};

// ---- initial conditions and loads ----------------------------------------------------------------------------------

std::size_t has_exempted_nodes(const GroupValues& values)
{
    return values.of(0, 1) > 0 ? 1 : 0;
}
constexpr Field velocity_1[] = {ref("nsid", Names::node_set), ref("nsidex", Names::node_set), ref("boxid", Names::box),
                                integer("irigid"), not_read(ref("icid", Names::coordinate_system))};
constexpr Field velocity_2[] = {real("vx"), real("vy"), real("vz"), real("vxr"), real("vyr"), real("vzr")};
constexpr Field velocity_3[] = {real("vxe"), real("vye"), real("vze"), real("vxre"), real("vyre"), real("vzre")};
constexpr CardLayout velocity_cards[] = {
    {"1", velocity_1},
    {"2", velocity_2},
    {.name = "3", .fields = velocity_3, .occurs = Occurs::counted, .count = has_exempted_nodes, .converted = false},
};

Names generation_target(const GroupValues& values)
{
    switch (to_int(values.of(0, 1))) {
    case 1:
        return Names::part_set;
    case 2:
        return Names::part;
    case 3:
        return Names::node_set;
    default:
        return Names::nothing;
    }
}
constexpr Field generation_1[] = {ref_by("id", generation_target),
                                  integer("styp"),
                                  real("omega"),
                                  real("vx"),
                                  real("vy"),
                                  real("vz"),
                                  not_read(integer("ivatn")),
                                  not_read(ref("icid", Names::coordinate_system))};
constexpr Field generation_2[] = {real("xc"), real("yc"), real("zc"),    real("nx"),
                                  real("ny"), real("nz"), real("phase"), not_read(integer("irigid"))};
constexpr CardLayout generation_cards[] = {{"1", generation_1}, {"2", generation_2}};

std::size_t has_acoustic_card(const GroupValues& values)
{
    return values.of(0, 0) < 0 ? 1 : 0;
}
Names detonated_part(const GroupValues& values)
{
    return values.of(0, 0) > 0 ? Names::part : Names::nothing;
}
constexpr Field detonation_1[] = {ref_by("pid", detonated_part), real("x"), real("y"), real("z"), real("lt"),
                                  not_read(integer("mmgset"))};
constexpr Field detonation_2[] = {real("peak"), real("decay"), real("xs"),
                                  real("ys"),   real("zs"),    ref("nid", Names::node)};
constexpr CardLayout detonation_cards[] = {{"1", detonation_1},
                                           {"2", detonation_2, Occurs::counted, has_acoustic_card}};

constexpr Field blast_1[] = {real("wgt"), real("xbo"),      real("ybo"),     real("zbo"),
                             real("tbo"), integer("iunit"), integer("isurf")};
constexpr Field blast_2[] = {real("cfm"),
                             real("cfl"),
                             real("cft"),
                             real("cfp"),
                             not_read(ref("nidbo", Names::node)),
                             not_read(real("death")),
                             not_read(integer("negphs"))};
constexpr CardLayout blast_cards[] = {{"1", blast_1}, {"2", blast_2}};

template <Names target>
constexpr Field load_node_1[] = {ref(target == Names::node ? "nid" : "nsid", target),
                                 integer("dof"),
                                 ref("lcid", Names::curve),
                                 real("sf"),
                                 ref("cid", Names::coordinate_system),
                                 ref("m1", Names::node),
                                 ref("m2", Names::node),
                                 ref("m3", Names::node)};
template <Names target>
constexpr CardLayout load_node_cards[] = {{"1", load_node_1<target>}};

// A curve number of -2 or -1 asks for a blast.
template <std::size_t field>
Names pressure_curve(const GroupValues& values)
{
    return values.of(0, field) > 0 ? Names::curve : Names::nothing;
}
constexpr Field segment_set_load_1[] = {ref("ssid", Names::segment_set), ref_by("lcid", pressure_curve<1>), real("sf"),
                                        real("at"), real("dt")};
constexpr CardLayout segment_set_load_cards[] = {{"1", segment_set_load_1}};

std::size_t has_higher_nodes(const GroupValues& values)
{
    return values.of(0, 7) != 0 ? 1 : 0;
}
constexpr Field segment_load_1[] = {ref_by("lcid", pressure_curve<0>),
                                    real("sf"),
                                    real("at"),
                                    ref("n1", Names::node),
                                    ref("n2", Names::node),
                                    ref("n3", Names::node),
                                    ref("n4", Names::node),
                                    ref("n5", Names::node)};
constexpr Field segment_load_2[] = {ref("n6", Names::node), ref("n7", Names::node), ref("n8", Names::node)};
constexpr CardLayout segment_load_cards[] = {{"1", segment_load_1},
                                             {"2", segment_load_2, Occurs::counted, has_higher_nodes}};

// ---- parts ---------------------------------------------------------------------------------------------------------

constexpr Field part_1[] = {text("heading")};
constexpr Field part_2[] = {def("pid", Names::part),
                            word("secid", Names::section),
                            word("mid", Names::material),
                            word("eosid", Names::equation_of_state),
                            word("hgid", Names::hourglass),
                            integer("grav"),
                            integer("adpopt"),
                            word("tmid", Names::thermal_material)};
constexpr Field part_mass[] = {real("xc"), real("yc"),      real("zc"),
                               real("tm"), integer("ircs"), ref("nodeid", Names::node)};
constexpr Field part_inertia[] = {real("ixx"), real("ixy"), real("ixz"), real("iyy"), real("iyz"), real("izz")};
constexpr Field part_velocity[] = {real("vtx"), real("vty"), real("vtz"), real("vrx"), real("vry"), real("vrz")};
constexpr Field part_axes[] = {
    real("xl"), real("yl"), real("zl"), real("xlip"), real("ylip"), real("zlip"), ref("cid", Names::coordinate_system)};
constexpr Field part_reposition[] = {integer("cmsn"), integer("mdep"), integer("movopt")};
constexpr Field part_contact[] = {real("fs"),   real("fd"),  real("dc"),  real("vc"),
                                  real("optt"), real("sft"), real("ssf"), real("cparm8")};
constexpr Field part_print[] = {integer("prbf")};
constexpr Field part_attachment[] = {ref("ansid", Names::node_set)};

constexpr std::size_t part_mass_card = 2;
std::size_t part_has_axes(const GroupValues& values)
{
    return values.of(part_mass_card, 4) == 1 ? 1 : 0;
}
constexpr CardLayout part_cards[] = {
    {"heading", part_1},
    {"1", part_2},
    option_card("INERTIA", "mass", part_mass),
    option_card("INERTIA", "inertia", part_inertia),
    option_card("INERTIA", "velocity", part_velocity),
    {.name = "axes",
     .fields = part_axes,
     .occurs = Occurs::counted,
     .count = part_has_axes,
     .converted = false,
     .option = "INERTIA"},
    option_card("REPOSITION", "reposition", part_reposition),
    option_card("CONTACT", "contact", part_contact),
    option_card("PRINT", "print", part_print),
    option_card("ATTACHMENT_NODES", "attachment", part_attachment),
};

// ---- sections ------------------------------------------------------------------------------------------------------

constexpr Field section_solid_1[] = {word_def("secid", Names::section), integer("elform"), integer("aet")};
constexpr CardLayout section_solid_cards[] = {{"1", section_solid_1}};

std::size_t angle_cards(const GroupValues& values)
{
    const double points = values.of(0, 3);
    if (values.of(0, 6) != 1 || !(points >= 1) || points > 1000) return 0;
    return (static_cast<std::size_t>(points) + 7) / 8;
}
constexpr Field section_shell_1[] = {word_def("secid", Names::section),
                                     integer("elform"),
                                     real("shrf"),
                                     integer("nip"),
                                     integer("propt"),
                                     integer("irid"),
                                     integer("icomp"),
                                     integer("setyp")};
constexpr Field section_shell_2[] = {real("t1"),      real("t2"),    real("t3"),   real("t4"),
                                     integer("nloc"), real("marea"), real("idof"), integer("edgset")};
constexpr Field section_shell_angles[] = {real("b1"), real("b2"), real("b3"), real("b4"),
                                          real("b5"), real("b6"), real("b7"), real("b8")};
constexpr CardLayout section_shell_cards[] = {
    {"1", section_shell_1},
    {"2", section_shell_2},
    {.name = "3", .fields = section_shell_angles, .occurs = Occurs::counted, .count = angle_cards, .converted = false},
};

constexpr Field section_sph_1[] = {word_def("secid", Names::section),
                                   real("cslh"),
                                   real("hmin"),
                                   real("hmax"),
                                   real("sphini"),
                                   real("death"),
                                   real("start"),
                                   not_read(integer("sphkern"))};
constexpr Field section_sph_ellipse[] = {real("hxcslh"), real("hycslh"), real("hzcslh"),
                                         real("hxini"),  real("hyini"),  real("hzini")};
constexpr CardLayout section_sph_cards[] = {{"1", section_sph_1}, option_card("ELLIPSE", "2", section_sph_ellipse)};

// ---- hourglass definitions and equations of state ------------------------------------------------------------------

constexpr Field hourglass_1[] = {word_def("hgid", Names::hourglass),
                                 integer("ihq"),
                                 real("qm"),
                                 integer("ibq"),
                                 real("q1"),
                                 real("q2"),
                                 real("qb"),
                                 real("qw")};
constexpr CardLayout hourglass_cards[] = {{"1", hourglass_1}};

constexpr Field eos_id = word_def("eosid", Names::equation_of_state);

constexpr Field polynomial_1[] = {eos_id,     real("c0"), real("c1"), real("c2"),
                                  real("c3"), real("c4"), real("c5"), real("c6")};
constexpr Field polynomial_2[] = {real("e0"), real("v0")};
constexpr CardLayout polynomial_cards[] = {{"1", polynomial_1}, {"2", polynomial_2}};

constexpr Field jwl_1[] = {eos_id, real("a"), real("b"), real("r1"), real("r2"), real("omeg"), real("e0"), real("v0")};
constexpr CardLayout jwl_cards[] = {{"1", jwl_1}};

constexpr Field gruneisen_1[] = {eos_id,     real("c"),     real("s1"), real("s2"),
                                 real("s3"), real("gamao"), real("a"),  real("e0")};
constexpr Field gruneisen_2[] = {real("v0"), not_read(integer("unused")), not_read(ref("lcid", Names::curve))};
constexpr CardLayout gruneisen_cards[] = {{"1", gruneisen_1}, {"2", gruneisen_2}};

constexpr Field ignition_1[] = {eos_id,      real("a"),    real("b"), real("xp1"),
                                real("xp2"), real("frer"), real("g"), real("r1")};
constexpr Field ignition_2[] = {real("r2"),    real("r3"),   real("r5"),    real("r6"),
                                real("fmxig"), real("freq"), real("grow1"), real("em")};
constexpr Field ignition_3[] = {real("ar1"),   real("es1"),   real("cvp"), real("cvr"),
                                real("eetal"), real("ccrit"), real("enq"), real("tmp0")};
constexpr Field ignition_4[] = {real("grow2"), real("ar2"), real("es2"), real("en"), real("fmxgr"), real("fmngr")};
constexpr CardLayout ignition_cards[] = {{"1", ignition_1}, {"2", ignition_2}, {"3", ignition_3}, {"4", ignition_4}};

// ---- materials -----------------------------------------------------------------------------------------------------

constexpr Field mat_id = word_def("mid", Names::material);

constexpr Field elastic_1[] = {mat_id, real("ro"), real("e"), real("pr"), real("da"), real("db"), real("k")};
constexpr CardLayout elastic_cards[] = {{"1", elastic_1}};

constexpr Field hydro_1[] = {mat_id,     real("ro"), real("g"),  real("sigy"),
                             real("eh"), real("pc"), real("fs"), real("charl")};
constexpr Field hydro_spall[] = {real("a1"), real("a2"), real("spall")};
constexpr Field hydro_eps1[] = {real("eps1"), real("eps2"), real("eps3"), real("eps4"),
                                real("eps5"), real("eps6"), real("eps7"), real("eps8")};
constexpr Field hydro_eps9[] = {real("eps9"),  real("eps10"), real("eps11"), real("eps12"),
                                real("eps13"), real("eps14"), real("eps15"), real("eps16")};
constexpr Field hydro_es1[] = {real("es1"), real("es2"), real("es3"), real("es4"),
                               real("es5"), real("es6"), real("es7"), real("es8")};
constexpr Field hydro_es9[] = {real("es9"),  real("es10"), real("es11"), real("es12"),
                               real("es13"), real("es14"), real("es15"), real("es16")};
constexpr CardLayout hydro_cards[] = {
    {"1", hydro_1},    {.name = "2", .fields = hydro_spall, .option = "SPALL"},
    {"3", hydro_eps1}, {"4", hydro_eps9},
    {"5", hydro_es1},  {"6", hydro_es9},
};

constexpr Field explosive_1[] = {mat_id,       real("ro"), real("d"), real("pcj"),
                                 real("beta"), real("k"),  real("g"), real("sigy")};
constexpr CardLayout explosive_cards[] = {{"1", explosive_1}};

constexpr Field isotropic_1[] = {mat_id, real("ro"), real("g"), real("sigy"), real("etan"), real("bulk")};
constexpr Field isotropic_2[] = {real("epf"), real("prf"), real("rem"), real("trem")};
constexpr CardLayout isotropic_failure_cards[] = {{"1", isotropic_1}, {"2", isotropic_2}};
constexpr CardLayout isotropic_plastic_cards[] = {{"1", isotropic_1}};

constexpr Field johnson_cook_1[] = {mat_id,     real("ro"),  real("g"),  real("e"),
                                    real("pr"), real("dtf"), real("vp"), real("rateop")};
constexpr Field johnson_cook_2[] = {real("a"), real("b"),  real("n"),  real("c"),
                                    real("m"), real("tm"), real("tr"), real("epso")};
constexpr Field johnson_cook_3[] = {real("cp"), real("pc"), real("spall"), real("it"),
                                    real("d1"), real("d2"), real("d3"),    real("d4")};
constexpr Field johnson_cook_4[] = {real("d5"), real("c2p"), not_read(real("erod")), not_read(real("efmin")),
                                    not_read(real("numint"))};
constexpr CardLayout johnson_cook_cards[] = {
    {"1", johnson_cook_1}, {"2", johnson_cook_2}, {"3", johnson_cook_3}, {"4", johnson_cook_4}};

constexpr Field simplified_1[] = {mat_id, real("ro"), real("e"), real("pr"), real("vp")};
constexpr Field simplified_2[] = {real("a"),      real("b"),      real("n"),      real("c"),
                                  real("psfail"), real("sigmax"), real("sigsat"), real("epso")};
constexpr CardLayout simplified_cards[] = {{"1", simplified_1}, {"2", simplified_2}};

constexpr Field ceramics_1[] = {mat_id, real("ro"), real("g"), real("a"), real("b"), real("c"), real("m"), real("n")};
constexpr Field ceramics_2[] = {real("epsi"), real("t"), real("sfmax"), real("hel"), real("phel"), real("beta")};
constexpr Field ceramics_3[] = {real("d1"), real("d2"), real("k1"), real("k2"), real("k3"), real("fs")};
constexpr CardLayout ceramics_cards[] = {{"1", ceramics_1}, {"2", ceramics_2}, {"3", ceramics_3}};

constexpr Field mooney_1[] = {mat_id, real("ro"), real("pr"), real("a"), real("b"), real("ref")};
constexpr Field mooney_2[] = {
    real("sgl"), real("sw"), real("st"), {.name = "lcid", .kind = Kind::real, .names = Names::curve}};
constexpr CardLayout mooney_cards[] = {{"1", mooney_1}, {"2", mooney_2}};

constexpr Field null_1[] = {mat_id,        real("ro"),    real("pc"), real("mu"),
                            real("terod"), real("cerod"), real("ym"), real("pr")};
constexpr CardLayout null_cards[] = {{"1", null_1}};

constexpr Field kinematic_1[] = {mat_id, real("ro"), real("e"), real("pr"), real("sigy"), real("etan"), real("beta")};
constexpr Field kinematic_2[] = {real("src"), real("srp"), real("fs"), real("vp")};
constexpr CardLayout kinematic_cards[] = {{"1", kinematic_1}, {"2", kinematic_2}};

constexpr Field rigid_1[] = {mat_id,    real("ro"),     real("e"), real("pr"),
                             real("n"), real("couple"), real("m"), real("alias")};
constexpr Field rigid_2[] = {real("cmo"), real("con1"), real("con2")};
constexpr Field rigid_3[] = {real("a1"), real("a2"), real("a3"), real("v1"), real("v2"), real("v3")};
constexpr CardLayout rigid_cards[] = {{"1", rigid_1}, {"2", rigid_2}, {"3", rigid_3}};

constexpr Field viscoelastic_1[] = {mat_id, real("ro"), real("bulk"), real("g0"), real("gi"), real("beta")};
constexpr CardLayout viscoelastic_cards[] = {{"1", viscoelastic_1}};

constexpr Field steinberg_1[] = {mat_id,       real("ro"), real("g0"),   real("sigo"),
                                 real("beta"), real("n"),  real("gama"), real("sigm")};
constexpr Field steinberg_2[] = {real("b"), real("bp"),  real("h"),    real("f"),
                                 real("a"), real("tmo"), real("gamo"), real("sa")};
constexpr Field steinberg_3[] = {real("pc"),  real("spall"), real("rp"),  real("flag"),
                                 real("mmn"), real("mmx"),   real("eco"), real("ec1")};
constexpr Field steinberg_4[] = {real("ec2"), real("ec3"), real("ec4"), real("ec5"),
                                 real("ec6"), real("ec7"), real("ec8"), real("ec9")};
constexpr CardLayout steinberg_cards[] = {
    {"1", steinberg_1}, {"2", steinberg_2}, {"3", steinberg_3}, {"4", steinberg_4}};

// ---- nodes and elements --------------------------------------------------------------------------------------------

constexpr Field number(std::string_view name, Names names)
{
    return wide(ref(name, names), 8);
}
constexpr Field node_number(std::string_view name)
{
    return number(name, Names::node);
}
constexpr Field node_number_64(std::string_view name)
{
    return in_64_bits(node_number(name));
}

constexpr Field node_1[] = {in_64_bits(wide(def("nid", Names::node), 8)),
                            wide(real("x"), 16),
                            wide(real("y"), 16),
                            wide(real("z"), 16),
                            wide(integer("tc"), 8),
                            wide(integer("rc"), 8)};
constexpr CardLayout node_cards[] = {{"1", node_1}};

constexpr Field shell_1[] = {in_64_bits(wide(def("eid", Names::shell), 8)),
                             in_64_bits(number("pid", Names::part)),
                             node_number_64("n1"),
                             node_number_64("n2"),
                             node_number_64("n3"),
                             node_number_64("n4"),
                             node_number_64("n5"),
                             node_number_64("n6"),
                             node_number_64("n7"),
                             node_number_64("n8")};
constexpr CardLayout shell_cards[] = {{"1", shell_1}};

constexpr Field thick_shell_1[] = {wide(def("eid", Names::shell), 8),
                                   number("pid", Names::part),
                                   node_number("n1"),
                                   node_number("n2"),
                                   node_number("n3"),
                                   node_number("n4"),
                                   node_number("n5"),
                                   node_number("n6"),
                                   node_number("n7"),
                                   node_number("n8")};
constexpr Field thick_shell_2[] = {wide(real("thic1"), 16), wide(real("thic2"), 16), wide(real("thic3"), 16),
                                   wide(real("thic4"), 16), wide(real("beta"), 16)};
constexpr CardLayout thick_shell_cards[] = {{"1", thick_shell_1}, {"2", thick_shell_2}};

constexpr Field solid_1[] = {in_64_bits(wide(def("eid", Names::solid), 8)),
                             in_64_bits(number("pid", Names::part)),
                             node_number_64("n1"),
                             node_number_64("n2"),
                             node_number_64("n3"),
                             node_number_64("n4"),
                             node_number_64("n5"),
                             node_number_64("n6"),
                             node_number_64("n7"),
                             node_number_64("n8")};
constexpr CardLayout solid_cards[] = {{"1", solid_1}};

constexpr Field two_line_solid_1[] = {in_64_bits(wide(def("eid", Names::solid), 8)),
                                      in_64_bits(number("pid", Names::part))};
constexpr Field two_line_solid_2[] = {
    node_number_64("n1"),           node_number_64("n2"),           node_number_64("n3"), node_number_64("n4"),
    node_number_64("n5"),           node_number_64("n6"),           node_number_64("n7"), node_number_64("n8"),
    not_read(node_number_64("n9")), not_read(node_number_64("n10"))};
constexpr CardLayout two_line_solid_cards[] = {{"1", two_line_solid_1}, {"2", two_line_solid_2}};
constexpr Layout two_line_solid{"*ELEMENT_SOLID", two_line_solid_cards};

constexpr Field particle_number{.name = "nid", .width = 8, .names = Names::node, .also_defines = Names::particle};
constexpr Field particle_1[] = {particle_number, number("pid", Names::part), wide(real("mass"), 16),
                                not_read(wide(ref("nend", Names::node), 8))};
constexpr CardLayout particle_cards[] = {{"1", particle_1}};

// Elements that the converter skips.
constexpr Field beam_1[] = {wide(def("eid", Names::element), 8), number("pid", Names::part), node_number("n1"),
                            node_number("n2"), node_number("n3")};
constexpr CardLayout beam_cards[] = {skipped_card("1", beam_1)};
constexpr Field discrete_1[] = {wide(def("eid", Names::element), 8), number("pid", Names::part), node_number("n1"),
                                node_number("n2")};
constexpr CardLayout discrete_cards[] = {skipped_card("1", discrete_1)};
constexpr Field mass_1[] = {wide(def("eid", Names::element), 8), node_number("nid"), wide(real("mass"), 16)};
constexpr CardLayout mass_cards[] = {skipped_card("1", mass_1)};
constexpr CardLayout skipped_shell_cards[] = {skipped_card("1", shell_1), further_cards};
constexpr CardLayout skipped_solid_cards[] = {skipped_card("1", solid_1), further_cards};
constexpr Field tshell_1[] = {wide(def("eid", Names::element), 8),
                              number("pid", Names::part),
                              node_number("n1"),
                              node_number("n2"),
                              node_number("n3"),
                              node_number("n4"),
                              node_number("n5"),
                              node_number("n6"),
                              node_number("n7"),
                              node_number("n8")};
constexpr CardLayout tshell_cards[] = {skipped_card("1", tshell_1)};

// ---- sets ----------------------------------------------------------------------------------------------------------

template <Names set>
constexpr Field set_1[] = {def("sid", set), real("da1"), real("da2"),
                           real("da3"),     real("da4"), {.name = "solver", .kind = Kind::word, .converted = false}};
constexpr CardLayout node_set_cards[] = {{"1", set_1<Names::node_set>}, {"members", eight_nodes, Occurs::to_the_end}};
constexpr CardLayout part_set_cards[] = {{"1", set_1<Names::part_set>}, {"members", eight_parts, Occurs::to_the_end}};
constexpr CardLayout shell_set_cards[] = {{"1", set_1<Names::shell_set>},
                                          {"members", eight_elements<Names::shell>, Occurs::to_the_end}};

constexpr Field solid_set_1[] = {def("sid", Names::solid_set),
                                 {.name = "solver", .kind = Kind::word, .converted = false}};
constexpr CardLayout solid_set_cards[] = {{"1", solid_set_1},
                                          {"members", eight_elements<Names::solid>, Occurs::to_the_end}};

constexpr Field segment_1[] = {ref("n1", Names::node),
                               ref("n2", Names::node),
                               ref("n3", Names::node),
                               ref("n4", Names::node),
                               real("a1"),
                               real("a2"),
                               real("a3"),
                               real("a4")};
constexpr CardLayout segment_set_cards[] = {{"1", set_1<Names::segment_set>},
                                            {"members", segment_1, Occurs::to_the_end}};

// ---- keywords that the converter skips, with what they define
// --------------------------------------------------------

template <Names names, bool carried_as_text>
constexpr Field first_number[] = {carried_as_text ? word_def("id", names) : def("id", names)};
template <Names names, bool carried_as_text = false>
constexpr CardLayout first_number_cards[] = {skipped_card("1", first_number<names, carried_as_text>), further_cards};

constexpr Layout skipped_one(std::string_view keyword, std::span<const CardLayout> cards,
                             Heading heading = Heading::title_once)
{
    return {keyword, cards, Groups::one, Reads::nothing, heading};
}

constexpr Field skipped_part_2[] = {def("pid", Names::part)};
constexpr CardLayout skipped_part_cards[] = {skipped_card("heading", part_1), skipped_card("1", skipped_part_2),
                                             further_cards};

constexpr Layout contact_layout(std::string_view keyword)
{
    return {keyword, contact_cards, Groups::one, Reads::first_group, Heading::id_once};
}
constexpr Layout eroding_layout(std::string_view keyword)
{
    return {keyword, eroding_contact_cards, Groups::one, Reads::first_group, Heading::id_once};
}

// ---- the table -----------------------------------------------------------------------------------------------------

constexpr Layout setting(std::string_view keyword, std::span<const CardLayout> cards)
{
    return {keyword, cards, Groups::one, Reads::first_group};
}

// A definition with a title of its own, of which the converter reads the first in a block.
constexpr Layout definition(std::string_view keyword, std::span<const CardLayout> cards)
{
    return {keyword, cards, Groups::many, Reads::first_group, Heading::title_each};
}

// clang-format off
constexpr Layout table[] = {
    setting("*TITLE", title_cards),
    setting("*CONTROL_BULK_VISCOSITY", viscosity_cards),
    setting("*CONTROL_CONTACT", control_contact_cards),
    setting("*CONTROL_HOURGLASS", control_hourglass_cards),
    setting("*CONTROL_SOLUTION", solution_cards),
    setting("*CONTROL_SPH", control_sph_cards),
    setting("*CONTROL_TERMINATION", termination_cards),
    setting("*CONTROL_TIMESTEP", timestep_cards),
    setting("*DATABASE_BINARY_D3DUMP", dump_cards),
    setting("*DATABASE_BINARY_D3PLOT", plot_cards),
    setting("*DATABASE_BINARY_RUNRSF", runrsf_cards),
    setting("*DATABASE_NODOUT", database_cards),
    setting("*DATABASE_ELOUT", database_cards),

    {"*DATABASE_HISTORY_NODE", history_cards<Names::node>, Groups::one},
    {"*DATABASE_HISTORY_NODE_SET", history_cards<Names::node_set>, Groups::one},
    {"*DATABASE_HISTORY_SHELL", history_cards<Names::shell>, Groups::one},
    {"*DATABASE_HISTORY_SHELL_SET", history_cards<Names::shell_set>, Groups::one},
    {"*DATABASE_HISTORY_SOLID", history_cards<Names::solid>, Groups::one},
    {"*DATABASE_HISTORY_SOLID_SET", history_cards<Names::solid_set>, Groups::one},

    contact_layout("*CONTACT_AUTOMATIC_GENERAL"),
    contact_layout("*CONTACT_AUTOMATIC_NODES_TO_SURFACE"),
    contact_layout("*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE"),
    contact_layout("*CONTACT_AUTOMATIC_SINGLE_SURFACE"),
    contact_layout("*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE"),
    eroding_layout("*CONTACT_ERODING_NODES_TO_SURFACE"),
    eroding_layout("*CONTACT_ERODING_SINGLE_SURFACE"),
    eroding_layout("*CONTACT_ERODING_SURFACE_TO_SURFACE"),
    contact_layout("*CONTACT_NODES_TO_SURFACE"),
    contact_layout("*CONTACT_ONE_WAY_SURFACE_TO_SURFACE"),
    contact_layout("*CONTACT_SINGLE_SURFACE"),
    contact_layout("*CONTACT_SURFACE_TO_SURFACE"),

    {"*BOUNDARY_NON_REFLECTING", non_reflecting_cards},
    {"*BOUNDARY_PRESCRIBED_MOTION_NODE", motion_cards<Names::node>, Groups::many, Reads::first_if_headed, Heading::id_once},
    {"*BOUNDARY_PRESCRIBED_MOTION_SET", motion_cards<Names::node_set>, Groups::many, Reads::first_if_headed, Heading::id_once},
    {"*BOUNDARY_PRESCRIBED_MOTION", motion_cards<Names::nothing>, Groups::many, Reads::all},
    {"*BOUNDARY_SPC_NODE", spc_cards<Names::node>, Groups::many, Reads::first_if_headed, Heading::id_once},
    {"*BOUNDARY_SPC_SET", spc_cards<Names::node_set>, Groups::many, Reads::first_if_headed, Heading::id_once},
    {"*BOUNDARY_SPC", spc_cards<Names::nothing>, Groups::many, Reads::all},
    {"*BOUNDARY_SPH_SYMMETRY_PLANE", sph_plane_cards},
    {"*BOUNDARY_SYMMETRY_FAILURE", symmetry_failure_cards},

    {"*DEFINE_BOX", box_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_BOX_ADAPTIVE", adaptive_box_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_BOX_COARSEN", coarsen_box_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_BOX_SPH", sph_box_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_COORDINATE_NODES", coordinate_nodes_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_COORDINATE_SYSTEM", coordinate_system_cards, Groups::many, Reads::first_if_headed, Heading::title_each},
    {"*DEFINE_CURVE", curve_cards, Groups::one, Reads::first_group, Heading::title_once},

    {"*INITIAL_VELOCITY", velocity_cards},
    {"*INITIAL_VELOCITY_GENERATION", generation_cards},
    {"*INITIAL_DETONATION", detonation_cards},
    {"*LOAD_BLAST", blast_cards},
    {"*LOAD_NODE", load_node_cards<Names::nothing>},
    {"*LOAD_NODE_POINT", load_node_cards<Names::node>},
    {"*LOAD_NODE_SET", load_node_cards<Names::node_set>},
    {"*LOAD_SEGMENT", segment_load_cards, Groups::many, Reads::first_if_headed, Heading::id_once},
    {"*LOAD_SEGMENT_SET", segment_set_load_cards, Groups::many, Reads::first_if_headed, Heading::id_once},

    {"*PART", part_cards},
    definition("*SECTION_SHELL", section_shell_cards),
    definition("*SECTION_SOLID", section_solid_cards),
    definition("*SECTION_SPH", section_sph_cards),
    definition("*HOURGLASS", hourglass_cards),
    definition("*EOS_GRUNEISEN", gruneisen_cards),
    definition("*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", ignition_cards),
    definition("*EOS_JWL", jwl_cards),
    definition("*EOS_LINEAR_POLYNOMIAL", polynomial_cards),
    definition("*MAT_ELASTIC", elastic_cards),
    definition("*MAT_ELASTIC_PLASTIC_HYDRO", hydro_cards),
    definition("*MAT_HIGH_EXPLOSIVE_BURN", explosive_cards),
    definition("*MAT_ISOTROPIC_ELASTIC_FAILURE", isotropic_failure_cards),
    definition("*MAT_ISOTROPIC_ELASTIC_PLASTIC", isotropic_plastic_cards),
    definition("*MAT_JOHNSON_COOK", johnson_cook_cards),
    definition("*MAT_JOHNSON_HOLMQUIST_CERAMICS", ceramics_cards),
    definition("*MAT_MOONEY-RIVLIN_RUBBER", mooney_cards),
    definition("*MAT_NULL", null_cards),
    definition("*MAT_PLASTIC_KINEMATIC", kinematic_cards),
    definition("*MAT_RIGID", rigid_cards),
    definition("*MAT_SIMPLIFIED_JOHNSON_COOK", simplified_cards),
    definition("*MAT_STEINBERG", steinberg_cards),
    definition("*MAT_VISCOELASTIC", viscoelastic_cards),

    {"*NODE", node_cards},
    {"*ELEMENT_SHELL", shell_cards},
    {"*ELEMENT_SHELL_BETA", thick_shell_cards},
    {"*ELEMENT_SHELL_THICKNESS", thick_shell_cards},
    {"*ELEMENT_SOLID", solid_cards},
    {"*ELEMENT_SPH", particle_cards},

    {"*SET_NODE", node_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_NODE_LIST", node_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_PART", part_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_PART_LIST", part_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SHELL", shell_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SHELL_LIST", shell_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SOLID", solid_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SOLID_LIST", solid_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SEGMENT", segment_set_cards, Groups::one, Reads::first_group, Heading::title_once},
    {"*SET_SEGMENT_LIST", segment_set_cards, Groups::one, Reads::first_group, Heading::title_once},

    // Skipped. A row without cards only keeps a longer name from the row of a shorter one.
    skipped_one("*DATABASE_HISTORY_NODE_", {}, Heading::none),
    skipped_one("*DATABASE_HISTORY_SHELL_", {}, Heading::none),
    skipped_one("*DATABASE_HISTORY_SOLID_", {}, Heading::none),
    skipped_one("*CONTACT_AUTOMATIC_GENERAL_INTERIOR", {}, Heading::id_once),
    skipped_one("*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE_TIE", {}, Heading::id_once),
    skipped_one("*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE_TIEBREAK", {}, Heading::id_once),
    skipped_one("*CONTACT_NODES_TO_SURFACE_INTERFERENCE", {}, Heading::id_once),
    skipped_one("*CONTACT_ONE_WAY_SURFACE_TO_SURFACE_INTERFERENCE", {}, Heading::id_once),
    skipped_one("*CONTACT_SURFACE_TO_SURFACE_CONTRACTION_JOINT", {}, Heading::id_once),
    skipped_one("*CONTACT_SURFACE_TO_SURFACE_INTERFERENCE", {}, Heading::id_once),
    skipped_one("*BOUNDARY_NON_REFLECTING_2D", {}, Heading::none),
    skipped_one("*BOUNDARY_PRESCRIBED_MOTION_RIGID", {}, Heading::id_once),
    skipped_one("*INITIAL_VELOCITY_KINEMATICS", {}, Heading::none),
    skipped_one("*INITIAL_VELOCITY_NODE", {}, Heading::none),
    skipped_one("*INITIAL_VELOCITY_RIGID_BODY", {}, Heading::none),
    skipped_one("*LOAD_SEGMENT_NONUNIFORM", {}, Heading::id_once),
    skipped_one("*LOAD_SEGMENT_SET_NONUNIFORM", {}, Heading::id_once),
    skipped_one("*NODE_RIGID", {}, Heading::none),
    skipped_one("*NODE_SCALAR", {}, Heading::none),
    skipped_one("*NODE_TRANSFORM", {}, Heading::none),

    skipped_one("*DEFINE_BOX_DRAWBEAD", first_number_cards<Names::box>),
    skipped_one("*DEFINE_COORDINATE", first_number_cards<Names::coordinate_system>),
    skipped_one("*DEFINE_VECTOR", first_number_cards<Names::vector>),
    skipped_one("*DEFINE_CURVE_COMPENSATION", {}),
    skipped_one("*DEFINE_CURVE_DRAWBEAD", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_CURVE_ENTITY", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_CURVE_FEEDBACK", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_CURVE_FUNCTION", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_CURVE_SMOOTH", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_CURVE_TRIM", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_FUNCTION", first_number_cards<Names::curve>),
    skipped_one("*DEFINE_TABLE", first_number_cards<Names::curve>),

    skipped_one("*PART_ADAPTIVE", {}, Heading::none),
    skipped_one("*PART_COMPOSITE", skipped_part_cards, Heading::none),
    skipped_one("*PART_MODES", {}, Heading::none),
    skipped_one("*PART_MOVE", {}, Heading::none),
    skipped_one("*PART_SENSOR", {}, Heading::none),
    skipped_one("*SECTION_", first_number_cards<Names::section, true>),
    skipped_one("*EOS_", first_number_cards<Names::equation_of_state, true>),
    skipped_one("*MAT_", first_number_cards<Names::material, true>),
    skipped_one("*MAT_ADD", {}),
    skipped_one("*MAT_ELASTIC_", first_number_cards<Names::material, true>),
    skipped_one("*MAT_THERMAL", first_number_cards<Names::thermal_material, true>),
    skipped_one("*MAT_VISCOELASTIC_HILL_FOAM", first_number_cards<Names::material, true>),
    skipped_one("*MAT_VISCOELASTIC_THERMAL", first_number_cards<Names::material, true>),

    {"*ELEMENT_BEAM", beam_cards, Groups::many, Reads::nothing},
    {"*ELEMENT_DISCRETE", discrete_cards, Groups::many, Reads::nothing},
    {"*ELEMENT_MASS", mass_cards, Groups::many, Reads::nothing},
    {"*ELEMENT_TSHELL", tshell_cards, Groups::many, Reads::nothing},
    skipped_one("*ELEMENT_SHELL_DOF", skipped_shell_cards, Heading::none),
    skipped_one("*ELEMENT_SHELL_MCID", skipped_shell_cards, Heading::none),
    skipped_one("*ELEMENT_SHELL_OFFSET", skipped_shell_cards, Heading::none),
    skipped_one("*ELEMENT_SOLID_DOF", skipped_solid_cards, Heading::none),
    skipped_one("*ELEMENT_SOLID_ORTHO", skipped_solid_cards, Heading::none),
    skipped_one("*ELEMENT_SOLID_TET", skipped_solid_cards, Heading::none),

    skipped_one("*SET_NODE_ADD", first_number_cards<Names::node_set>),
    skipped_one("*SET_NODE_COLUMN", first_number_cards<Names::node_set>),
    skipped_one("*SET_NODE_GENERAL", first_number_cards<Names::node_set>),
    skipped_one("*SET_NODE_LIST_GENERATE", first_number_cards<Names::node_set>),
    skipped_one("*SET_PART_ADD", first_number_cards<Names::part_set>),
    skipped_one("*SET_PART_COLUMN", first_number_cards<Names::part_set>),
    skipped_one("*SET_PART_LIST_GENERATE", first_number_cards<Names::part_set>),
    skipped_one("*SET_SEGMENT_GENERAL", first_number_cards<Names::segment_set>),
    skipped_one("*SET_SHELL_ADD", first_number_cards<Names::shell_set>),
    skipped_one("*SET_SHELL_COLUMN", first_number_cards<Names::shell_set>),
    skipped_one("*SET_SHELL_GENERAL", first_number_cards<Names::shell_set>),
    skipped_one("*SET_SHELL_LIST_GEN", first_number_cards<Names::shell_set>),
    skipped_one("*SET_SOLID_ADD", first_number_cards<Names::solid_set>),
    skipped_one("*SET_SOLID_GENERAL", first_number_cards<Names::solid_set>),
    skipped_one("*SET_SOLID_GENERATE", first_number_cards<Names::solid_set>),
};
// clang-format on

}  // namespace

const CardLayout title_card{"title", title_fields};
const CardLayout id_card{"id", id_fields};

std::span<const Layout> layouts()
{
    return table;
}

const Layout& solid_on_two_lines()
{
    return two_line_solid;
}

}  // namespace deck
