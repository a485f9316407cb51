// Resource ids of the test programs' own dialog. Plain macros: the resource compiler reads this.
#pragma once

#define IDD_DEMO 2000
#define IDC_WHOLE 2001
#define IDC_DECIMAL 2002
#define IDC_DEMO_NAME 2003
#define IDC_EMAIL 2004
#define IDC_FILE 2005
#define IDC_WATER 2006
#define IDC_CIRCLE 2007
#define IDC_EGG 2008
#define IDC_RECTANGLE 2009
#define IDC_CLASS 2010
#define IDC_LIST 2011
#define IDC_ADD 2012
#define IDC_DELETE 2013

#define IDD_TREELIST 2100
#define IDC_TREELIST_PLACE 11049
#define IDC_NOTE 2101
