// Resource ids of the material dialogs. Plain macros: the resource compiler includes this too.
#pragma once

// Icons: the program's own (lowest id: the one the shell shows) and the buttons' pictures.
#define IDI_VELMORA 1
#define IDI_ADD 101
#define IDI_DELETE 102
#define IDI_EDIT 103
#define IDI_COPY 104

#define IDD_MAT_VYBER 200   // "Materiály pro potrubí", the selection dialog
#define IDD_MAT_EDITUJ 201  // "Editace materiálů", the editor
#define IDD_MAT_POPIS 202   // "Zadej formát popisu"
#define IDD_GET_DN 203      // "Výběr rozsahu DN"

// Filters: placement radios, then medium radios, each group in mask order.
#define IDC_FILTER_GROUP 1000
#define IDC_SCOPE_ZTI 1001
#define IDC_SCOPE_NETWORKS 1002
#define IDC_SCOPE_ALL 1003
#define IDC_FILTER_SEWAGE 1004
#define IDC_FILTER_PRESSURE_SEWAGE 1005
#define IDC_FILTER_WATER 1006
#define IDC_FILTER_GAS 1007
#define IDC_FILTER_HEATING 1008
#define IDC_FILTER_ALL 1009

#define IDC_MATERIALS_HEADING 1011
#define IDC_MATERIAL_LIST 1012
#define IDC_PROFILES_HEADING 1013
#define IDC_PROFILE_PLACE 11049  // where the profile pane goes

// The material's fields.
#define IDC_USE_ZTI 1020
#define IDC_USE_NETWORKS 1021
#define IDC_USE_SEWAGE 1022
#define IDC_USE_PRESSURE_SEWAGE 1023
#define IDC_USE_WATER 1024
#define IDC_USE_GAS 1025
#define IDC_USE_HEATING 1026
#define IDC_NAME_LABEL 1027
#define IDC_NAME 1028
#define IDC_DISPLAY_NAME_LABEL 1029
#define IDC_DISPLAY_NAME 1030
#define IDC_MANUFACTURER_LABEL 1031
#define IDC_MANUFACTURER 1032
#define IDC_DESCRIPTION_LABEL 1033
#define IDC_DESCRIPTION 1034
#define IDC_PN_LABEL 1035
#define IDC_PN 1036
#define IDC_SDR_LABEL 1037
#define IDC_SDR 1038
#define IDC_ROUGHNESS_LABEL 1039
#define IDC_ROUGHNESS 1040
#define IDC_LABEL_MODE_LABEL 1041
#define IDC_LABEL_DN 1042
#define IDC_LABEL_DXT 1043
#define IDC_LABEL_CUSTOM 1044
#define IDC_SHAPE_CIRCLE 1045
#define IDC_SHAPE_EGG 1046
#define IDC_SHAPE_EGG_PRAGUE 1047
#define IDC_SHAPE_MOUTH 1048
#define IDC_SHAPE_RECTANGLE 1049

// Commands of the selection dialog.
#define IDC_EDIT_MATERIALS 1050
#define IDC_HELP_BUTTON 1051

// Commands of the editor.
#define IDC_MATERIAL_ADD 1060
#define IDC_MATERIAL_DELETE 1061
#define IDC_MATERIAL_COPY 1062
#define IDC_MATERIAL_EDIT 1063
#define IDC_MATERIAL_APPLY 1064
#define IDC_MATERIAL_REVERT 1065
#define IDC_PROFILE_ADD 1070
#define IDC_PROFILE_DELETE 1071
#define IDC_PROFILE_DELETE_ALL 1072
#define IDC_PROFILE_GENERATE 1073
#define IDC_URS_INSTALL_LABEL 1074
#define IDC_URS_INSTALL 1075
#define IDC_URS_MATERIAL_LABEL 1076
#define IDC_URS_MATERIAL 1077
#define IDC_LOAD_FILE 1080
#define IDC_LOAD_STANDARD 1081

// The description format dialog.
#define IDC_PREFIX_LABEL 1100
#define IDC_PREFIX 1101
#define IDC_SUFFIX_LABEL 1102
#define IDC_SUFFIX 1103
#define IDC_OUTER_DIAMETER 1104
#define IDC_INNER_DIAMETER 1105

// The DN range dialog.
#define IDC_DN_HEADING 1110
#define IDC_DN_FROM_LABEL 1111
#define IDC_DN_FROM 1112
#define IDC_DN_TO_LABEL 1113
#define IDC_DN_TO 1114
