// Ids of the dialog under test, for C++ and the resource compiler.
#ifndef ZERVO_TESTS_SAMPLE_IDS_H
#define ZERVO_TESTS_SAMPLE_IDS_H

#define IDD_sample 9000
#define IDC_sample_LBtext 9001
#define IDC_sample_Ttext 9002
#define IDC_sample_Tbytes 9003
#define IDC_sample_CKcase 9004
#define IDC_sample_OPone 9005
#define IDC_sample_OPtwo 9006
#define IDC_sample_Llist 9007
#define IDC_sample_Lcombo 9008
#define IDC_sample_LV 9009
#define IDC_sample_TV 9010
#define IDC_sample_COK 9011
#define IDC_sample_CEXIT 9012
#define IDC_sample_Pfram 9013

#endif
