#include "support/model_keywords.h"

#include <cstddef>
#include <cstdlib>
#include <utility>

namespace models
{
// A row: keyword, option ("!" behind it: only with it; "+" in front: several definitions in a block without it), cards.
// Fields of a card are separated by blanks, cards by "|". Behind a field's name: nothing for a small integer, "/r" for
// a real number, "/p" for a positive one, "/t" for a direction, "=" and the value itself, ":" and a range of integers,
// "@" and what it names ("?" behind it: or nothing), "#" and what it defines.

namespace
{
struct Row {
    std::string_view keyword;
    std::string_view option;
    std::string_view cards;
};

constexpr Row feature_rows[] = {
    {"*CONTROL_BULK_VISCOSITY", "", "q1/p q2/p type=1"},
    {"*CONTROL_CONTACT", "",
     "slsfac/p rwpnal/r islchk shlthk penopt thkchg orien enmass"
     "|usrstr usrfrc nsbcs interm xpene/r ssthk ecdt tiedprj"},
    {"*CONTROL_HOURGLASS", "", "ihq:1-5 qh/p"},
    {"*CONTROL_SOLUTION", "", "soln:0-2 nlq isnan lcint"},
    {"*CONTROL_SPH", "", "ncbs:1-9 boxid@box? dt/p idim:2-3 memory:100-300 form start/r maxv/p"},
    {"*CONTROL_TERMINATION", "", "endtim/p endcyc dtmin/r endeng/r endmas/r"},
    {"*CONTROL_TIMESTEP", "", "dtinit/r tssfac/p isdo tslimt/r dt2ms/r lctm@curve? erode ms1st"},
    {"*DATABASE_BINARY_D3DUMP", "", "cycl:100-9000 lcdt@curve? beam npltc psetid@part_set?"},
    {"*DATABASE_BINARY_D3PLOT", "", "dt/p lcdt@curve? beam npltc psetid@part_set?"},
    {"*DATABASE_BINARY_D3PLOT", "", "dt/p lcdt@curve? beam npltc psetid@part_set?|ioopt:0-3"},
    {"*DATABASE_BINARY_RUNRSF", "", "cycl:100-9000 nr beam npltc psetid@part_set?"},
    {"*DATABASE_NODOUT", "", "dt/p binary lcur@curve? ioopt dthf/r binhf"},
    {"*DATABASE_ELOUT", "", "dt/p binary lcur@curve? ioopt dthf/r binhf"},
    {"*BOUNDARY_NON_REFLECTING", "+", "ssid@segment_set ad/r as/r"},
    {"*BOUNDARY_PRESCRIBED_MOTION_NODE", "+_ID", "nid@node dof:1-7 vad:0-1 lcid@curve sf/p vid=0 death/r birth/r"},
    {"*BOUNDARY_PRESCRIBED_MOTION_SET", "+_ID", "nsid@node_set dof:1-7 vad:0-1 lcid@curve sf/r vid=0 death/r birth/r"},
    {"*BOUNDARY_PRESCRIBED_MOTION_SET", "+_ID",
     "nsid@node_set dof:9-11 vad:0-1 lcid@curve sf/r vid=0 death/r birth/r|offset1/p offset2/r mrb node1@node node2@node"},
    {"*BOUNDARY_SPC_NODE", "+_ID", "nid@node cid@system? dofx:0-1 dofy:0-1 dofz:0-1 dofrx:0-1 dofry:0-1 dofrz:0-1"},
    {"*BOUNDARY_SPC_SET", "+_ID", "nsid@node_set cid@system? dofx:0-1 dofy:0-1 dofz:0-1 dofrx:0-1 dofry:0-1 dofrz:0-1"},
    {"*BOUNDARY_SPH_SYMMETRY_PLANE", "+", "vtx/r vty/r vtz/r vhx/p vhy/r vhz/r"},
    {"*BOUNDARY_SYMMETRY_FAILURE", "+", "ssid@segment_set fs/p vtx/r vty/r vtz/r vhx/p vhy/r vhz/r"},
    {"*DEFINE_BOX_ADAPTIVE", "+_TITLE", "boxid#box xmn/r xmx/r ymn/r ymx/r zmn/r zmx/r|pid@part level:1-3"},
    {"*DEFINE_BOX_COARSEN", "+_TITLE", "boxid#box xmn/r xmx/r ymn/r ymx/r zmn/r zmx/r iflag:0-1"},
    {"*DEFINE_BOX_SPH", "+_TITLE", "boxid#box xmn/r xmx/r ymn/r ymx/r zmn/r zmx/r vid=0|lcid@curve vd:0-2"},
    {"*INITIAL_DETONATION", "+", "pid@part x/r y/r z/r lt/r"},
    {"*INITIAL_DETONATION", "+", "pid=-1 x/r y/r z/r lt/r|peak/p decay/p xs/r ys/r zs/r nid@node"},
    {"*INITIAL_VELOCITY", "+", "nsid@node_set nsidex=0 boxid=0 irigid=0|vx/p vy/r vz/r vxr/r vyr/r vzr/r"},
    {"*INITIAL_VELOCITY_GENERATION", "+",
     "id@part_set styp=1 omega/r vx/p vy/r vz/r ivatn=0|xc/r yc/r zc/r nx/p ny/r nz/r phase=0"},
    {"*INITIAL_VELOCITY_GENERATION", "+",
     "id@part styp=2 omega/p vx/r vy/p vz/r ivatn=0|xc/r yc/r zc/r nx/r ny/p nz/r phase=0"},
    {"*INITIAL_VELOCITY_GENERATION", "+",
     "id@node_set styp=3 omega/r vx/r vy/r vz/p ivatn=0|xc/r yc/r zc/r nx/r ny/r nz/p phase=0"},
    {"*LOAD_BLAST", "", "wgt/p xbo/r ybo/r zbo/r tbo/r iunit:1-5 isurf:1-2|cfm/r cfl/r cft/r cfp/p"},
    {"*LOAD_NODE_POINT", "+", "nid@node dof:1-3 lcid@curve sf/r cid@system? m1=0 m2=0 m3=0"},
    {"*LOAD_NODE_POINT", "+", "nid@node dof=4 lcid@curve sf/r cid=0 m1@node m2@node m3@node"},
    {"*LOAD_NODE_SET", "+", "nsid@node_set dof:1-3 lcid@curve sf/p cid@system? m1=0 m2=0 m3=0"},
    {"*LOAD_SEGMENT_SET", "+_ID", "ssid@segment_set lcid@curve sf/p at/r dt/r"},
    {"*LOAD_SEGMENT_SET", "+_ID", "ssid@segment_set lcid=-2 sf/p at/r dt/r"},
    {"*LOAD_SEGMENT", "+_ID", "lcid@curve sf/p at/r n1@node n2@node n3@node n4@node"},
    {"*LOAD_SEGMENT", "+_ID", "lcid@curve sf/p at/r n1@node n2@node n3@node n4@node n5@node|n6@node n7@node n8@node"},
};

struct ContactRow {
    std::string_view keyword;
    std::string_view sides;  // ssid, msid and their types
    bool eroding;
};

constexpr std::string_view segments_on_both_sides = "ssid@segment_set msid@segment_set sstyp=0 mstyp=0";
constexpr std::string_view parts_on_both_sides = "ssid@part msid@part sstyp=3 mstyp=3";
constexpr std::string_view one_side = "ssid@part_set msid=0 sstyp=2 mstyp=0";
constexpr std::string_view nodes_and_segments = "ssid@node_set msid@segment_set sstyp=4 mstyp=0";

constexpr ContactRow contact_rows[] = {
    {"*CONTACT_AUTOMATIC_GENERAL", one_side, false},
    {"*CONTACT_AUTOMATIC_NODES_TO_SURFACE", nodes_and_segments, false},
    {"*CONTACT_AUTOMATIC_ONE_WAY_SURFACE_TO_SURFACE", segments_on_both_sides, false},
    {"*CONTACT_AUTOMATIC_SINGLE_SURFACE", one_side, false},
    {"*CONTACT_AUTOMATIC_SURFACE_TO_SURFACE", parts_on_both_sides, false},
    {"*CONTACT_ERODING_NODES_TO_SURFACE", nodes_and_segments, true},
    {"*CONTACT_ERODING_SINGLE_SURFACE", one_side, true},
    {"*CONTACT_ERODING_SURFACE_TO_SURFACE", parts_on_both_sides, true},
    {"*CONTACT_NODES_TO_SURFACE", nodes_and_segments, false},
    {"*CONTACT_ONE_WAY_SURFACE_TO_SURFACE", segments_on_both_sides, false},
    {"*CONTACT_SINGLE_SURFACE", one_side, false},
    {"*CONTACT_SURFACE_TO_SURFACE", segments_on_both_sides, false},
};

constexpr std::string_view contact_cards = " sboxid@box? mboxid@box? spr:0-1 mpr:0-1"
                                           "|fs/p fd/r dc/r vc/r vdc/r penchk:0-2 bt/r dt/r"
                                           "|sfs/p sfm/p sst/r mst/r sfst/r sfmt/r fsf/r vsf/r";
constexpr std::string_view eroding_card = "|isym:0-1 erosop:0-1 iadj:0-1";
constexpr std::string_view optional_card =
    "|soft:0-2 sofscl/p lcidab@curve? maxpar/r sbopt:2-5 depth:2-5 bsort:1-90 frcfrq";

constexpr Row section_rows[] = {
    {"*SECTION_SOLID", "_TITLE", "secid#section elform:1-2 aet:0-3"},
    {"*SECTION_SHELL", "_TITLE",
     "secid#section elform:0-5 shrf/p nip:1-5 propt:0-3 qr:0-2 icomp=0 setyp:0-1"
     "|t1/p t2/p t3/p t4/p nloc:0-1 marea/r idof/r edgset=0"},
    {"*SECTION_SPH", "_TITLE", "secid#section cslh/p hmin/r hmax/r sphini/r death/r start/r"},
};

constexpr Row hourglass_rows[] = {{"*HOURGLASS", "_TITLE", "hgid#hourglass ihq:1-5 qm/p ibq=1 q1/p q2/p qb/r qw/r"}};

constexpr Row state_rows[] = {
    {"*EOS_GRUNEISEN", "_TITLE", "eosid#state c/p s1/r s2/r s3/r gamao/r a/r e0/r|v0/p"},
    {"*EOS_JWL", "_TITLE", "eosid#state a/p b/p r1/p r2/p omeg/r e0/r v0/r"},
    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", "_TITLE",
     "eosid#state a/p b/r xp1/r xp2/r frer/r g/p r1/r|r2/r r3/p r5/r r6/r fmxig/r freq/r grow1/r em/r"
     "|ar1/p es1/r cvp/p cvr/p eetal/r ccrit/r enq/r tmp0/r|grow2/r ar2/r es2/r en/r fmxgr/r fmngr/p"},
    {"*EOS_LINEAR_POLYNOMIAL", "_TITLE!", "eosid#state c0/r c1/p c2/r c3/r c4/r c5/r c6/r|e0/p v0/r"},
};

constexpr Row material_rows[] = {
    {"*MAT_ELASTIC", "_TITLE", "mid#material ro/p e/p pr/p da/r db/r k/r"},
    {"*MAT_ELASTIC_PLASTIC_HYDRO", "_TITLE",
     "mid#material ro/p g/p sigy/r eh/r pc/r fs/r charl/r"
     "|eps1/r eps2/r eps3/r eps4/r eps5/r eps6/r eps7/r eps8/r|eps9/r eps10/r eps11/r eps12/r eps13/r eps14/r eps15/r "
     "eps16/r|es1/r es2/r es3/r es4/r es5/r es6/r es7/r es8/r|es9/r es10/r es11/r es12/r es13/r es14/r es15/r es16/p"},
    {"*MAT_ELASTIC_PLASTIC_HYDRO_SPALL", "_TITLE",
     "mid#material ro/p g/p sigy/r eh/r pc/r fs/r charl/r|a1/p a2/r spall/r"
     "|eps1/p eps2/r eps3/r eps4/r eps5/r eps6/r eps7/r eps8/r|eps9/r eps10/r eps11/r eps12/r eps13/r eps14/r eps15/r "
     "eps16/r|es1/r es2/r es3/r es4/r es5/r es6/r es7/r es8/r|es9/r es10/r es11/r es12/r es13/r es14/r es15/r es16/p"},
    {"*MAT_HIGH_EXPLOSIVE_BURN", "_TITLE", "mid#material ro/p d/p pcj/p beta:1-2 k/r g/r sigy/r"},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", "_TITLE", "mid#material ro/p g/p sigy/p etan/r bulk/p|epf/p prf/r rem/r trem/r"},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", "_TITLE", "mid#material ro/p g/p sigy/p etan/r bulk/p"},
    {"*MAT_JOHNSON_COOK", "_TITLE",
     "mid#material ro/p g/p e/p pr/p dtf/r vp:0-1 rateop:0-4|a/p b/r n/r c/r m/r tm/p tr/p epso/p"
     "|cp/p pc/r spall:0-3 it:0-1 d1/r d2/r d3/r d4/r|d5/p c2p/r"},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", "",
     "mid#material ro/p g/p a/p b/r c/r m/r n/r|epsi/p t/p sfmax/r hel/p phel/p beta/r|d1/r d2/r k1/p k2/r k3/r fs/r"},
    {"*MAT_MOONEY-RIVLIN_RUBBER", "_TITLE", "mid#material ro/p pr/p a/p b/r ref=0|sgl/p sw/r st/r lcid@curve?"},
    {"*MAT_NULL", "_TITLE", "mid#material ro/p pc/r mu/r terod/r cerod/r ym/r pr/r"},
    {"*MAT_PLASTIC_KINEMATIC", "_TITLE", "mid#material ro/p e/p pr/p sigy/p etan/r beta/r|src/p srp/r fs/r vp/r"},
    {"*MAT_RIGID", "_TITLE",
     "mid#material ro/p e/p pr/p n/r couple=0 m/r alias=0|cmo:1-1 con1:0-7 con2:0-7|a1/p a2/r a3/r v1/r v2/r v3/r"},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", "_TITLE",
     "mid#material ro/p e/p pr/p vp:0-1|a/p b/r n/r c/r psfail/r sigmax/r sigsat/r epso/p"},
    {"*MAT_STEINBERG", "_TITLE!",
     "mid#material ro/p g0/p sigo/r beta/r n/r gama/r sigm/r|b/p bp/r h/r f/r a/r tmo/r gamo/r sa/r"
     "|pc/p spall:1-3 rp/r flag:0-1 mmn/r mmx/r eco/r ec1/r|ec2/r ec3/r ec4/r ec5/r ec6/r ec7/r ec8/r ec9/p"},
    {"*MAT_VISCOELASTIC", "_TITLE", "mid#material ro/p bulk/p g0/p gi/p beta/r"},
};

constexpr Row box_rows[] = {{"*DEFINE_BOX", "+_TITLE", "boxid#box xmn/r xmx/r ymn/r ymx/r zmn/r zmx/r"}};

constexpr Row system_rows[] = {
    {"*DEFINE_COORDINATE_NODES", "+_TITLE", "cid#system n1@node n2@node n3@node flag:0-1 dir/t"},
    {"*DEFINE_COORDINATE_SYSTEM", "+_TITLE", "cid#system xo/r yo/r zo/r xl/p yl/r zl/r|xp/r yp/p zp/r"},
};

constexpr std::string_view pool_names[] = {"",         "node",      "part",      "section",   "material",
                                           "state",    "hourglass", "curve",     "box",       "system",
                                           "node_set", "part_set",  "shell_set", "solid_set", "segment_set"};

Pool pool_named(std::string_view name)
{
    for (std::size_t i = 1; i < std::size(pool_names); ++i)
        if (pool_names[i] == name) return static_cast<Pool>(i);
    std::abort();  // a slip in the tables above
}

// Cuts the text off before the separator, and the separator with it.
std::string_view cut(std::string_view& text, char separator)
{
    const std::size_t end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return piece;
}

FieldForm field_form(std::string_view text)
{
    using Source = FieldForm::Source;
    const std::size_t end = text.find_first_of("/=:@#");
    FieldForm form;
    form.name = text.substr(0, end);
    if (end == std::string_view::npos) return form;
    std::string_view rest = text.substr(end + 1);
    switch (text[end]) {
    case '/':
        form.source = rest == "r" ? Source::real : rest == "p" ? Source::positive : Source::direction;
        break;
    case '=':
        form.source = Source::fixed;
        form.text = rest;
        break;
    case ':':
        form.source = Source::range;
        form.low = std::atoi(std::string(cut(rest, '-')).c_str());
        form.high = std::atoi(std::string(rest).c_str());
        break;
    case '@':
        form.source = rest.back() == '?' ? Source::maybe : Source::reference;
        form.pool = pool_named(cut(rest, '?'));
        break;
    default:
        form.source = Source::definition;
        form.pool = pool_named(rest);
    }
    return form;
}

KeywordForm keyword_form(std::string_view keyword, std::string_view option, std::string_view cards)
{
    KeywordForm form{std::string(keyword), {}, false, false, {}};
    if (!option.empty() && option.front() == '+') {
        form.many = true;
        option.remove_prefix(1);
    }
    if (!option.empty() && option.back() == '!') {
        form.always = true;
        option.remove_suffix(1);
    }
    form.option = option;
    while (!cards.empty()) {
        std::string_view card = cut(cards, '|');
        std::vector<FieldForm>& fields = form.cards.emplace_back();
        while (!card.empty()) fields.push_back(field_form(cut(card, ' ')));
    }
    return form;
}

template <std::size_t count>
std::vector<KeywordForm> keyword_forms(const Row (&rows)[count])
{
    std::vector<KeywordForm> forms;
    for (const Row& row : rows) forms.push_back(keyword_form(row.keyword, row.option, row.cards));
    return forms;
}

// What the texts of the tables are cut from lives as long as the forms.
std::vector<KeywordForm> with_contacts(std::vector<KeywordForm> forms)
{
    static std::vector<std::string> texts;
    texts.reserve(2 * std::size(contact_rows));
    for (const ContactRow& row : contact_rows) {
        std::string cards = std::string(row.sides).append(contact_cards).append(row.eroding ? eroding_card : "");
        texts.push_back(cards);
        texts.push_back(cards.append(optional_card));
        for (std::size_t i = texts.size() - 2; i < texts.size(); ++i)
            forms.push_back(keyword_form(row.keyword, "_ID", texts[i]));
    }
    return forms;
}
}  // namespace

std::span<const KeywordForm> feature_forms()
{
    static const std::vector<KeywordForm> forms = with_contacts(keyword_forms(feature_rows));
    return forms;
}

std::span<const KeywordForm> definition_forms(Pool pool)
{
    static const std::vector<KeywordForm> hourglasses = keyword_forms(hourglass_rows);
    static const std::vector<KeywordForm> states = keyword_forms(state_rows);
    static const std::vector<KeywordForm> materials = keyword_forms(material_rows);
    static const std::vector<KeywordForm> boxes = keyword_forms(box_rows);
    static const std::vector<KeywordForm> systems = keyword_forms(system_rows);
    switch (pool) {
    case Pool::hourglass:
        return hourglasses;
    case Pool::state:
        return states;
    case Pool::material:
        return materials;
    case Pool::box:
        return boxes;
    case Pool::system:
        return systems;
    default:
        return {};
    }
}

const KeywordForm& section_form(std::size_t kind)
{
    static const std::vector<KeywordForm> sections = keyword_forms(section_rows);
    return sections[kind];
}
}  // namespace models
