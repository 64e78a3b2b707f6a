#pragma once

// The program's own message codes and field names, and what travels in each message.
//
// A message carries only the fields named beside its code. A preference notice carries no value:
// its receiver reads the preferences record, which the sender has written before sending.

#include <support/SupportDefs.h>

// Commands of the menus and keys, carried out by the application.
constexpr uint32 kMsgOpen = '_opn';
constexpr uint32 kMsgShowPrefs = '_prf';
constexpr uint32 kMsgShowImageInfo = 'simi';
constexpr uint32 kMsgShowHelp = '_hlp';
constexpr uint32 kMsgShowSharedPrefs = '_Ssp';

// Carried out by the main window.
constexpr uint32 kMsgDeleteAllHistory = '_dam';

// Carried out by the viewer view.
constexpr uint32 kMsgNextImage = 'dnxi';
constexpr uint32 kMsgPrevImage = 'dpri';
constexpr uint32 kMsgFirstImage = 'dfri';
constexpr uint32 kMsgLastImage = 'dlsi';
constexpr uint32 kMsgChooseDisplayOption = 'dspo';  ///< kFieldDisplayOption
constexpr uint32 kMsgToggleComment = 'encm';
constexpr uint32 kMsgToggleFullScreen = 'flsc';

// Additions, chosen in the picture's context menu and carried out by the viewer view.
constexpr uint32 kMsgToggleSmoothScaling = 'smsc';

// Between the viewer view, its loaders and its window.
constexpr uint32 kMsgImageLoaded = 'imld';    ///< kFieldThread; kFieldImage unless loading failed
constexpr uint32 kMsgImageFound = 'imfd';     ///< kFieldThread, kFieldIndex
constexpr uint32 kMsgRetryLoad = 'lltr';      ///< kFieldDelta
constexpr uint32 kMsgAddHistory = '_ahr';     ///< kFieldRefs
constexpr uint32 kMsgRemoveHistory = '_rhr';  ///< kFieldRefs

// Preference notices. Those the preferences dialog sends carry kFieldSender.
constexpr uint32 kPrefDisplayOption = 'pdoc';
constexpr uint32 kPrefEnableComment = 'pecc';
constexpr uint32 kPrefEnablePreload = 'pepc';
constexpr uint32 kPrefCommentAlign = 'pcac';
constexpr uint32 kPrefCommentEncoding = 'pcec';
constexpr uint32 kPrefCommentFontFamily = 'pcfc';
constexpr uint32 kPrefCommentFontSize = 'pcsc';
constexpr uint32 kPrefCommentMargin = 'pcmc';
constexpr uint32 kPrefCommentPadding = 'pcpc';
constexpr uint32 kPrefCommentFileExts = 'pcxc';
constexpr uint32 kPrefColors = 'pclc';

// Preferences shared with other applications.
constexpr uint32 kMsgSharedItemChanged = '_Sic';  ///< kFieldSharedItem and the item's value
constexpr uint32 kMsgAddSharedComponents = 'iacr';
constexpr uint32 kMsgActivateSharedWindow = 'iawr';
constexpr uint32 kMsgSharedControlChanged = 'ictc';  ///< kFieldSharedItem

// Controls of the dialogs, handled by the view they stand in.
constexpr uint32 kMsgOK = '_ok';
constexpr uint32 kMsgCancel = '_cnc';
constexpr uint32 kMsgDefaults = '_dfl';
constexpr uint32 kMsgAddCommentFileExt = 'acfe';
constexpr uint32 kMsgRemoveCommentFileExt = 'rcfe';
constexpr uint32 kMsgCommentFileExtSelected = 'lcfe';
constexpr uint32 kMsgNewCommentFileExtChanged = 'tacc';
constexpr uint32 kMsgEnableCommentClicked = 'cecm';
constexpr uint32 kMsgEnablePreloadClicked = 'cepl';
constexpr uint32 kMsgCommentAtTop = 'rcat';
constexpr uint32 kMsgCommentAtBottom = 'rcab';
constexpr uint32 kMsgColorAlphaChanged = 'scac';
constexpr uint32 kMsgColorChanged = 'cclc';
constexpr uint32 kMsgCommentPaddingChanged = 'tcpc';
constexpr uint32 kMsgCommentMarginChanged = 'tcmc';
constexpr uint32 kMsgCommentFontSizeChanged = 'tcsc';
constexpr uint32 kMsgCommentEncodingChosen = 'pcen';
constexpr uint32 kMsgCommentFontFamilyChosen = 'pcff';
constexpr uint32 kMsgColorTargetChosen = 'pclt';
constexpr uint32 kMsgDisplayOptionChosen = 'pdso';

// Posted by the system to every window when its language has changed.
constexpr uint32 kMsgLanguageChanged = '_BLC';

// Field names.
constexpr char kFieldRefs[] = "refs";                  ///< entry_ref
constexpr char kFieldThread[] = "Thread";              ///< int32, the loader's thread id
constexpr char kFieldImage[] = "Image";                ///< pointer to a TImage, handed over
constexpr char kFieldIndex[] = "Index";                ///< int32, a position in the list
constexpr char kFieldDelta[] = "Delta";                ///< int32, +1 or -1
constexpr char kFieldDisplayOption[] = "DispOpt";      ///< int32, 0 to 5
constexpr char kFieldEncoding[] = "Encoding";          ///< int32, a comment_encoding
constexpr char kFieldSender[] = "Sender";              ///< pointer to the view that sent a notice
constexpr char kFieldSharedApp[] = "IAP:SrcApp";       ///< string, an application signature
constexpr char kFieldSharedItem[] = "IAP:SrcIAPItem";  ///< string, the item's name
constexpr char kFieldSource[] = "source";              ///< pointer to the panel that was closed
constexpr char kFieldLanguageForwarded[] = "LFSendFlag";  ///< bool: a copy sent on already
