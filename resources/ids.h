// Ids of commands, controls and forms. Scripts and tests drive the program by them: a released id keeps its
// number. Shared by C++ and the resource compiler, so plain #defines only.
#ifndef ZERVO_IDS_H
#define ZERVO_IDS_H

// Icons, manifest, fonts
#define IDI_Zervo 1
#define IDF_ZervoSans 501  // interface font: Unicode Georgian
#define IDF_ZervoISO 502   // code view: legacy bytes
#define IDF_ZervoASCII 503 // code view: Latin keyboard layout
#define IDF_ZervoRUS 504   // code view: Windows-1251 bytes

// Main window
#define IDD_FrmH 1000
#define IDC_FrmH_T1 1001
#define IDC_FrmH_TV 1002
#define IDC_FrmH_Status 1003

// Message, input and choice box
#define IDD_frmBOXa 1100
#define IDC_frmBOXa_LBtext 1101
#define IDC_frmBOXa_Tanswer 1102
#define IDC_frmBOXa_LV 1103
#define IDC_frmBOXa_COK 1104
#define IDC_frmBOXa_Cyes 1105
#define IDC_frmBOXa_Cno 1106
#define IDC_frmBOXa_CEXIT 1107
#define IDC_frmBOXa_Picon 1108

// Russian keyboard map
#define IDD_frmrusaso 1200
#define IDC_frmrusaso_LV 1201
#define IDC_frmrusaso_CEXIT 1202

// Commands: File 40001.., Edit 40101.., conversions 40151.., typing modes 40201.., View 40301.., Help 40401..
#define mnunewF 40001
#define mnunewT 40002
#define mnuOpen 40003
#define mnuSave 40004
#define mnuSaveas 40005
#define mnuSaveWEB 40006
#define mnuClose 40007
#define mnunewwind 40008
#define mnuExit 40009
#define mnuCloseWEB 40010

#define mnuUndo 40101
#define mnuRedo 40102
#define mnuCut 40103
#define mnuCopy 40104
#define mnuPaste 40105
#define mnuDelete 40106
#define mnuSelectAll 40107

#define mnuUTF8 40151
#define mnumtubers 40152
#define mnuTut8dekod 40153
#define mnuUTF8dekod 40154
#define mnuUbendkopi 40155
#define mnuTkod 40156
#define mnukod 40157
#define mnuTfonkod 40158
#define mnuMfonkod 40159
#define mnuhinu 40160
#define mnuUinH 40161
#define mnuQHIU 40162
#define mnuQUIH 40163
#define mnuQUTFIH 40164
#define mnuQHIUTF 40165
#define mnuxuc 40166

#define mnuens0 40201
#define mnuens1 40202
#define mnuens2 40203
#define mnuens3 40204
#define mnurusaso 40205

#define mnuWordWrap 40301
#define mnuPreviewPane 40302
#define mnuNextDocument 40303
#define mnuPreviousDocument 40304

#define mnuAbout 40401
#define mnuHelp 40402

#endif
