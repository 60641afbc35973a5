#include "platform/portable/PaperSizes.h"

#include <algorithm>
#include <array>

namespace nesk::platform::portable {

namespace {

struct Paper {
    int code;
    std::string_view name;
};

constexpr std::array Papers = {
    Paper{1, "na_letter"},       Paper{2, "na_letter"}, // small
    Paper{3, "na_ledger"},       Paper{4, "na_ledger"}, // rotated
    Paper{5, "na_legal"},        Paper{6, "na_invoice"},
    Paper{7, "na_executive"},    Paper{8, "iso_a3"},
    Paper{9, "iso_a4"},          Paper{10, "iso_a4"}, // small
    Paper{11, "iso_a5"},         Paper{12, "jis_b4"},
    Paper{13, "jis_b5"},         Paper{14, "na_foolscap"},
    Paper{15, "na_quarto"},      Paper{16, "na_10x14"},
    Paper{17, "na_ledger"},      Paper{18, "na_letter"}, // note
    Paper{19, "na_number-9"},    Paper{20, "na_number-10"},
    Paper{21, "na_number-11"},   Paper{22, "na_number-12"},
    Paper{23, "na_number-14"},   Paper{24, "na_c"},
    Paper{25, "na_d"},           Paper{26, "na_e"},
    Paper{27, "iso_dl"},         Paper{28, "iso_c5"},
    Paper{29, "iso_c3"},         Paper{30, "iso_c4"},
    Paper{31, "iso_c6"},         Paper{32, "iso_c6c5"},
    Paper{33, "iso_b4"},         Paper{34, "iso_b5"},
    Paper{35, "iso_b6"},         Paper{36, "om_italian"},
    Paper{37, "na_monarch"},     Paper{38, "na_personal"},
    Paper{39, "na_fanfold-us"},  Paper{40, "na_fanfold-eur"},
    Paper{41, "na_foolscap"},    Paper{42, "iso_b4"},
    Paper{43, "jpn_hagaki"},     Paper{44, "na_9x11"},
    Paper{45, "na_10x11"},       Paper{46, "na_11x15"},
    Paper{47, "om_invite"},      Paper{50, "na_letter-extra"},
    Paper{51, "na_legal-extra"}, Paper{53, "iso_a4-extra"},
    Paper{54, "na_letter"}, // transverse, as the next two
    Paper{55, "iso_a4"},         Paper{56, "na_letter-extra"},
    Paper{57, "na_super-a"},     Paper{58, "na_super-b"},
    Paper{59, "na_letter-plus"}, Paper{60, "om_folio"},
    Paper{61, "iso_a5"}, // transverse, as the next one
    Paper{62, "jis_b5"},         Paper{63, "iso_a3-extra"},
    Paper{64, "iso_a5-extra"},   Paper{65, "iso_b5-extra"},
    Paper{66, "iso_a2"},         Paper{67, "iso_a3"}, // transverse, as the next one
    Paper{68, "iso_a3-extra"},   Paper{69, "jpn_oufuku"},
    Paper{70, "iso_a6"},         Paper{71, "jpn_kaku2"},
    Paper{72, "jpn_kaku3"},      Paper{73, "jpn_chou3"},
    Paper{74, "jpn_chou4"},      Paper{88, "jis_b6"},
    Paper{90, "na_11x12"},       Paper{91, "jpn_you4"},
    Paper{93, "prc_16k"},        Paper{94, "prc_32k"},
    Paper{96, "prc_1"},          Paper{97, "prc_2"},
    Paper{98, "prc_3"},          Paper{99, "prc_4"},
    Paper{100, "prc_5"},         Paper{101, "prc_6"},
    Paper{102, "prc_7"},         Paper{103, "prc_8"},
    Paper{104, "prc_9"},         Paper{105, "prc_10"},
};

} // namespace

std::string PaperName(int code) {
    const auto found =
        std::find_if(Papers.begin(), Papers.end(), [&](const Paper& paper) { return paper.code == code; });
    return found != Papers.end() ? std::string(found->name) : "";
}

std::optional<int> PaperCode(std::string_view name) {
    const auto found =
        std::find_if(Papers.begin(), Papers.end(), [&](const Paper& paper) { return paper.name == name; });
    if (found == Papers.end()) return std::nullopt;
    return found->code;
}

} // namespace nesk::platform::portable
