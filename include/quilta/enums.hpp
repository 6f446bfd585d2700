// The public enumerations of the object model.
#pragma once

#include <cstdint>

namespace quilta {

using Color = int32_t;  // -1 = not set; 0x800000nn = system colour nn

enum ECellTypes : int32_t {
  quCellText = 0,
  quCellCombo = 1,
  quCellTextCombo = 2,
  quCellCustomDraw = 3
};

enum ECellTypeFlags : int32_t {
  quCheckBox3State = 16,
  quTextBoxVScrollBar = 32,
  quTextBoxHScrollBar = 64
};

enum ECellCheckState : int32_t {
  quCheckStateUnchecked = 0,
  quCheckStateChecked = 1,
  quCheckStateGrayed = 2
};

enum ECellCheckPos : int32_t {
  quCheckPosLeft = 0,
  quCheckPosTop = 1,
  quCheckPosRight = 2,
  quCheckPosBottom = 3,
  quCheckPosCenter = 4
};

enum EHatchStyles : int32_t {
  quHatchHorizontal = 0,
  quHatchVertical = 1,
  quHatchFDiagonal = 2,
  quHatchBDiagonal = 3,
  quHatchCross = 4,
  quHatchDiagCross = 5,
  quHatchNone = 7
};

enum ECellIconToText : int32_t {
  quCellIconToTextLeft = 0,
  quCellIconToTextTop = 1,
  quCellIconToTextRight = 2,
  quCellIconToTextBottom = 3
};

enum EHAlignment : int32_t { quAlignHLeft = 0, quAlignHCenter = 1, quAlignHRight = 2 };

enum EVAlignment : int32_t { quAlignVTop = 0, quAlignVCenter = 1, quAlignVBottom = 2 };

// Text drawing flags, passed to the platform's text drawing unchanged.
enum ETextFormatFlags : int32_t {
  quTextTop = 0,
  quTextLeft = 0,
  quTextCenter = 1,
  quTextRight = 2,
  quTextVCenter = 4,
  quTextBottom = 8,
  quTextWordBreak = 16,
  quTextSingleLine = 32,
  quTextExpandTabs = 64,
  quTextNoClip = 256,
  quTextNoPrefix = 2048,
  quTextPathEllipsis = 16384,
  quTextEndEllipsis = 32768,
  quTextWordEllipsis = 262144
};

enum EDynamicContentEvents : int32_t {
  quDCEventNone = 0,
  quDCEventCellDynamicFormatting = 1,
  quDCEventCellDynamicIcons = 2,
  quDCEventCellDynamicText = 4,
  quDCEventRowDynamicFormatting = 8
};

enum ECellProperty : int32_t {
  quPropCellAlignH = 0,
  quPropCellAlignV = 1,
  quPropCellBackColor = 2,
  quPropCellCheckPos = 3,
  quPropCellCheckState = 4,
  quPropCellCheckVisible = 5,
  quPropCellComboListIndex = 6,
  quPropCellCtrlKey = 7,
  quPropCellExtraData = 8,
  quPropCellExtraIcon = 9,
  quPropCellExtraImageList = 10,
  quPropCellFmtString = 11,
  quPropCellFont = 12,
  quPropCellForeColor = 13,
  quPropCellHatch = 14,
  quPropCellIcon = 15,
  quPropCellIconToText = 16,
  quPropCellImageList = 17,
  quPropCellIndentBottom = 18,
  quPropCellIndentLeft = 19,
  quPropCellIndentRight = 20,
  quPropCellIndentTop = 21,
  quPropCellSelectable = 22,
  quPropCellSelected = 23,
  quPropCellTextFlags = 24,
  quPropCellType = 25,
  quPropCellTypeFlags = 26,
  quPropCellValue = 27
};

enum EStoreInitRowNumbersPlace : int32_t {
  quStoreInitRowNoNowhere = 0,
  quStoreInitRowNoInRowKey = 1,
  quStoreInitRowNoInRowTag = 2,
  quStoreInitRowNoIn1stCol = 3
};

enum ERowTreeButton : int32_t {
  quRowTreeButtonAbsent = 0,
  quRowTreeButtonHidden = 1,
  quRowTreeButtonVisible = 2
};

enum EMoveRowMode : int32_t { quMoveRowBefore = 0, quMoveRowAfter = 1, quMoveRowAsChild = 2 };

enum ESortTypes : int32_t {
  quSortByValueGeneral = 0,
  quSortByValueUseCase = 1,
  quSortByValueNoCase = 2,
  quSortByCellTextUseCase = 3,
  quSortByCellTextNoCase = 4,
  quSortByIcon = 5,
  quSortByExtraIcon = 6,
  quSortByForeColor = 7,
  quSortByBackColor = 8,
  quSortByFontIndex = 9,
  quSortBySelected = 10,
  quSortBySelectable = 11,
  quSortByHatch = 12,
  quSortByCheckState = 13,
  quSortByCheckVisible = 14,
  quSortByComboListIndex = 15,
  quSortByExtraData = 16,
  quSortByValueCustomGroups = 97,
  quSortCustom = 98,
  quSortNone = 99
};

enum ESortOrders : int32_t { quSortAsc = 0, quSortDesc = 1 };

enum ECellParts : int32_t {
  quCellPartNone = 0,
  quCellPartText = 1,
  quCellPartIcon = 2,
  quCellPartExtraIcon = 3,
  quCellPartComboButton = 4,
  quCellPartCheckBox = 5,
  quCellPartTreeButton = 6
};

enum EEnsureVisibleRowMode : int32_t {
  quEnsVisRowAuto = 0,
  quEnsVisRowTop = 1,
  quEnsVisRowTopForce = 2,
  quEnsVisRowBottom = 3,
  quEnsVisRowBottomForce = 4
};

enum EEnsureVisibleColMode : int32_t {
  quEnsVisColAuto = 0,
  quEnsVisColLeft = 1,
  quEnsVisColLeftForce = 2,
  quEnsVisColRight = 3,
  quEnsVisColRightForce = 4
};

enum ECellVisibilityFilter : int32_t {
  quCellVisAllCells = 0,
  quCellVisCurrentlyVisible = 1,
  quCellVisVisibleProperty = 2
};

enum ESearchMatchMode : int32_t {
  quSearchMatchStartsWith = 0,
  quSearchMatchContains = 1,
  quSearchMatchEquals = 2
};

enum EKeyPressBehaviour : int32_t {
  quKeyPressNone = 0,
  quKeyPressEditAppend = 1,
  quKeyPressEditReplace = 2,
  quKeyPressSearchCurCol = 3,
  quKeyPressSearchDefCol = 4
};

enum ETextEditFlags : int32_t {
  quTextEditUpperCase = 8,
  quTextEditLowerCase = 16,
  quTextEditNumberOnly = 8192
};

enum EEditResults : int32_t { quEditResCancel = 0, quEditResCommit = 1, quEditResProceed = 2 };

enum EFillFromRSMode : int32_t {
  quFillRSRecreateColsOnly = 0,
  quFillRSColsIfEmptyAndRows = 1,
  quFillRSAddToExistingRows = 2
};

enum EScrollBar : int32_t { quScrollBarH = 0, quScrollBarV = 1 };

enum EBorderType : int32_t {
  quBorderNone = 0,
  quBorderFlat = 1,
  quBorderSunken = 2,
  quBorderThemed = 3
};

enum EGridLines : int32_t {
  quGridLinesNone = 0,
  quGridLinesHorizontal = 1,
  quGridLinesVertical = 2,
  quGridLinesBoth = 3
};

enum EGridLinesExtendModes : int32_t {
  quGridLinesExtendNone = 0,
  quGridLinesExtendHorizontal = 1,
  quGridLinesExtendVertical = 2,
  quGridLinesExtendBoth = 3
};

enum EScrollBarStyles : int32_t {
  quScrollBarRegular = 0,
  quScrollBarFlat = 1,
  quScrollBarEncarta = 2
};

enum ETreeLines : int32_t { quTreeLinesNone = 0, quTreeLinesDotted = 1, quTreeLinesSolid = 2 };

// Features a host can ask about with Supports.
enum ESupportFeatures : int32_t {
  quSupportsVirtualMode = 1,
  quSupportsTreeRows = 2,
  quSupportsGrouping = 3,
  quSupportsXPStyles = 4,
  quSupportsUnicode = 5
};

// Values a host can read with Sys.
enum ESystemParameters : int32_t {
  quSysMemMngAllocatedRows = 1,
  quSysMemMngFreePhysRows = 2,
  quSysFormatStringCount = 3,
  quSysFontCount = 4
};

}  // namespace quilta
