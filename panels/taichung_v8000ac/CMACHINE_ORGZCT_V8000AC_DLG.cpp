#include "CMACHINE_ORGZCT_V8000AC_DLG.h"

#include "KRNResources.h"
#include "TaichungV8000acPages.h"
#include "TaichungV8000acStagePages.h"

namespace TaichungV8000ac {

namespace {
// One table for the module, as the controller keeps it: a panel opened
// without a language choice is built from the set chosen last.
TemplateSet g_Templates = kEnglishTemplates;
}  // namespace

const TemplateSet& Templates() { return g_Templates; }

void SelectLanguage(const std::string& language) {
    g_Templates = language == "zh-TW" ? kZhTwTemplates : kEnglishTemplates;
}

void SelectLanguageOf(const CKRNMachineData& record) { SelectLanguage(record.GetLanguage()); }

}  // namespace TaichungV8000ac

using namespace TaichungV8000ac;

// The template number goes to the base here, so the language must have been
// chosen before (the panel table's run does that): the frame only reads the table.
CMACHINE_ORGZCT_V8000AC_DLG::CMACHINE_ORGZCT_V8000AC_DLG(const CKRNMachineData& data, QWidget* parent)
    : CKRNPanelFrame(Templates()[0], data, parent) {
    for (int key = 0; key < 8; ++key) OnClicked(kKeys[key], [this, key] { OnKey(key); });
    for (int id : kCaptions) SetCtlColor(id, kCaptionText, kCaptionBack);
    SetDialogColor(kFrameText, kFrameBack);
    m_Font.setPointSize(9);
    m_Font.setBold(true);
}

bool CMACHINE_ORGZCT_V8000AC_DLG::OnInitDialog() {
    CreatePages(IDC_PAGE_AREA, {new CMACHINE_ORGZCT_V8000AC_INJPAGE(m_MachineData, this),
                                new CMACHINE_ORGZCT_V8000AC_MACHINEPAGE1(m_MachineData, this),
                                new CMACHINE_ORGZCT_V8000AC_MENUPAGE(m_MachineData, this),
                                new CMACHINE_ORGZCT_V8000AC_PRESSCORVE(m_MachineData, this),
                                new CMACHINE_ORGZCT_V8000AC_SETTINGPAGE1(m_MachineData, this),
                                new CMACHINE_ORGZCT_V8000AC_TEMP_PAGE(m_MachineData, this)});
    ShowPage(kMenuPage);

    // Five injection stages of speed, pressure and position, four hold stages.
    m_nStageCounts[0] = 5;
    m_nStageCounts[1] = 5;
    m_nStageCounts[2] = 4;
    PadAndDistribute(6, 6, 5);

    ShowMenu();
    return true;
}

void CMACHINE_ORGZCT_V8000AC_DLG::OnKey(int key) {
    if (kKeys[key] == IDC_KEY_NEXT) {
        m_nMenuMode = m_nMenuMode == 0 ? 1 : 0;
        ShowMenu();
        return;
    }
    const int target = (m_nMenuMode == 0 ? kMenu0Targets : kMenu1Targets)[key];
    if (target == kNoPage || target == ShownPage()) return;
    GoToPage(target);
    for (int id : kRepaintedCaptions)
        if (QWidget* caption = GetDlgItem(id)) caption->update();
}

void CMACHINE_ORGZCT_V8000AC_DLG::ShowMenu() {
    const int* faces = m_nMenuMode == 0 ? kMenu0Bitmaps : kMenu1Bitmaps;
    for (int key = 0; key < 8; ++key) {
        ShowDlgItem(kKeys[key], faces[key] != 0);
        if (faces[key] != 0) SetBitmapButton(kKeys[key], faces[key], faces[key], faces[key]);
        if (QWidget* button = GetDlgItem(kKeys[key])) button->update();
    }
    if (m_nMenuMode == 0) {
        for (int i = 0; i < 8; ++i) SetDlgItemText(kMenu0CaptionStatics[i], LoadResourceString(kMenu0Strings[i]));
    } else {
        for (int i = 0; i < 6; ++i) SetDlgItemText(kMenu1CaptionStatics[i], LoadResourceString(kMenu1Strings[i]));
    }
    ShowDlgItem(IDC_CAPTION_7, m_nMenuMode == 0);
    for (int id : kCaptions)
        if (QWidget* caption = GetDlgItem(id)) caption->setFont(m_Font);
}

void CMACHINE_ORGZCT_V8000AC_DLG::TidyAtOK() {
    for (KRNMACHINEITEM profile : {MI_P_PROFILE, MI_PP_PROFILE}) KRNStages::Tidy(m_MachineData, profile);
}
