#include "KRNPanelTable.h"

#include "CMachineDialogHolder.h"
#include "common/KRNPanelEntry.h"
#include "arburg_selogica/CMACHINE_ARBURG_SELOGICA_DIRECT_DLG.h"
#include "chenhsong_cdc2000/CMACHINE_CHENSONG_CDC2000_DLG.h"
#include "clf_series/CMACHINE_CLF_SERIES_DLG.h"
#include "fanuc_s2000i/CMACHINE_FANUC_S2000I_DLG.h"
#include "jsw_syscom3000/CMACHINE_JSW_SYSCOM3000_DLG.h"
#include "mitsubishi_electric/CMACHINE_MITSUBISHI_DLG.h"
#include "mitsubishi_hydraulic/CMACHINE_MITSU_DLG.h"
#include "niigata_mdseries/CMACHINE_NIIGATA_MDSERIES_DLG.h"
#include "polypax_series/CMACHINE_POLYPAX_SERIES_DLG.h"
#include "taichung_v8000ac/CMACHINE_ORGZCT_V8000AC_DLG.h"
#include "universal_multishot/CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG.h"

#include <array>

namespace {

// "FANUC-B" shares type 4 with "Sodick-TRD6".
constexpr std::array<KRNControllerName, 18> kControllers{{
    {"TACT", 0},
    {"NC9300T", 1},
    {"FCS-3000", 2},
    {"FANUC-Series", 3},
    {"Sodick-TRD6", 4},
    {"SUMITOMO-450HD", 5},
    {"SELOGICA", 6},
    {"CLF-Series", 7},
    {"JSW-Series", 8},
    {"NIIGATA-Series", 9},
    {"Polypax-Series", 10},
    {"FANUC-A", 11},
    {"FANUC-B", 4},
    {"Taichung machinery-Series", 12},
    {"MITSUBISHI-Electric", 13},
    {"MITSUBISHI-Hydraulic", 14},
    {"UMS-Series", 15},
    {"CHEN HSONG-CDC2000", 16},
}};

const KRNPanelEntry kPanels[] = {
    {6, &KRNRunModalPanel<CMACHINE_ARBURG_SELOGICA_DIRECT_DLG>, nullptr},
    {7, &KRNRunModalPanel<CMACHINE_CLF_SERIES_DLG>, nullptr},
    {8, &KRNRunModalPanel<CMACHINE_JSW_SYSCOM3000_DLG>, nullptr},
    {9, &KRNRunModalPanel<CMACHINE_NIIGATA_MDSERIES_DLG>, nullptr},
    {10, &KRNRunModalPanel<CMACHINE_POLYPAX_SERIES_DLG>, &KRNCreateHostedPanel<CMACHINE_POLYPAX_SERIES_DLG>},
    {11, &KRNRunModalPanel<CMACHINE_FANUC_S2000I_DLG>, &KRNCreateHostedPanel<CMACHINE_FANUC_S2000I_DLG>},
    // The template set follows the record's language, chosen before the frame is built.
    {12, &KRNRunPreparedPanel<CMACHINE_ORGZCT_V8000AC_DLG, &TaichungV8000ac::SelectLanguageOf>, nullptr},
    {13, &KRNRunModalPanel<CMACHINE_MITSUBISHI_DLG>, nullptr},
    {14, &KRNRunModalPanel<CMACHINE_MITSU_DLG>, nullptr},
    {15, &KRNRunModalPanel<CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG>,
     &KRNCreateHostedPanel<CMACHINE_UNIVERSALMULTISHOT_MAINMENU_DLG>},
    {16, &KRNRunModalPanel<CMACHINE_CHENSONG_CDC2000_DLG>, nullptr},
};
}  // namespace

std::span<const KRNControllerName> KRNControllerTable() { return kControllers; }

const KRNPanelEntry* KRNFindPanel(int controllerType) {
    for (const KRNPanelEntry& entry : kPanels)
        if (entry.runModal && entry.controllerType == controllerType) return &entry;
    return nullptr;
}
