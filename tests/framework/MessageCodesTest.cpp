#include "framework/MessageCodes.h"

#include <app/AppDefs.h>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

struct CodeCase {
    uint32 code;
    const char* spelling;
};

constexpr CodeCase kOwnCodes[] = {
    {kMsgOpen, "_opn"},
    {kMsgShowPrefs, "_prf"},
    {kMsgShowImageInfo, "simi"},
    {kMsgShowHelp, "_hlp"},
    {kMsgShowSharedPrefs, "_Ssp"},
    {kMsgDeleteAllHistory, "_dam"},
    {kMsgNextImage, "dnxi"},
    {kMsgPrevImage, "dpri"},
    {kMsgFirstImage, "dfri"},
    {kMsgLastImage, "dlsi"},
    {kMsgChooseDisplayOption, "dspo"},
    {kMsgToggleComment, "encm"},
    {kMsgToggleFullScreen, "flsc"},
    {kMsgToggleSmoothScaling, "smsc"},
    {kMsgImageLoaded, "imld"},
    {kMsgImageFound, "imfd"},
    {kMsgRetryLoad, "lltr"},
    {kMsgAddHistory, "_ahr"},
    {kMsgRemoveHistory, "_rhr"},
    {kPrefDisplayOption, "pdoc"},
    {kPrefEnableComment, "pecc"},
    {kPrefEnablePreload, "pepc"},
    {kPrefCommentAlign, "pcac"},
    {kPrefCommentEncoding, "pcec"},
    {kPrefCommentFontFamily, "pcfc"},
    {kPrefCommentFontSize, "pcsc"},
    {kPrefCommentMargin, "pcmc"},
    {kPrefCommentPadding, "pcpc"},
    {kPrefCommentFileExts, "pcxc"},
    {kPrefColors, "pclc"},
    {kMsgSharedItemChanged, "_Sic"},
    {kMsgAddSharedComponents, "iacr"},
    {kMsgActivateSharedWindow, "iawr"},
    {kMsgSharedControlChanged, "ictc"},
    {kMsgOK, "_ok"},
    {kMsgCancel, "_cnc"},
    {kMsgDefaults, "_dfl"},
    {kMsgAddCommentFileExt, "acfe"},
    {kMsgRemoveCommentFileExt, "rcfe"},
    {kMsgCommentFileExtSelected, "lcfe"},
    {kMsgNewCommentFileExtChanged, "tacc"},
    {kMsgEnableCommentClicked, "cecm"},
    {kMsgEnablePreloadClicked, "cepl"},
    {kMsgCommentAtTop, "rcat"},
    {kMsgCommentAtBottom, "rcab"},
    {kMsgColorAlphaChanged, "scac"},
    {kMsgColorChanged, "cclc"},
    {kMsgCommentPaddingChanged, "tcpc"},
    {kMsgCommentMarginChanged, "tcmc"},
    {kMsgCommentFontSizeChanged, "tcsc"},
    {kMsgCommentEncodingChosen, "pcen"},
    {kMsgCommentFontFamilyChosen, "pcff"},
    {kMsgColorTargetChosen, "pclt"},
    {kMsgDisplayOptionChosen, "pdso"},
    {kMsgLanguageChanged, "_BLC"},
};

constexpr CodeCase kPlatformCodes[] = {
    {B_REFS_RECEIVED, "_RRC"},
    {B_SIMPLE_DATA, "DATA"},
    {B_CANCEL, "_CNC"},
    {B_ABOUT_REQUESTED, "_ABR"},
    {B_QUIT_REQUESTED, "_QRQ"},
    {B_KEY_DOWN, "_KYD"},
    {B_MOUSE_WHEEL_CHANGED, "_MWC"},
};

/// The first character in the most significant byte.
uint32 code_of(const std::string& spelling) {
    uint32 code = 0;
    for (const char character : spelling)
        code = code << 8 | static_cast<unsigned char>(character);
    return code;
}

TEST(MessageCodes, AreSpelledAsOtherProgramsKnowThem) {
    EXPECT_EQ(kMsgNextImage, 0x646e7869U);
    for (const CodeCase& c : kOwnCodes)
        EXPECT_EQ(c.code, code_of(c.spelling)) << c.spelling;
    for (const CodeCase& c : kPlatformCodes)
        EXPECT_EQ(c.code, code_of(c.spelling)) << c.spelling;
}

TEST(MessageCodes, AreDistinct) {
    std::set<uint32> codes;
    for (const CodeCase& c : kOwnCodes)
        EXPECT_TRUE(codes.insert(c.code).second) << c.spelling;
    for (const CodeCase& c : kPlatformCodes)
        EXPECT_TRUE(codes.insert(c.code).second) << c.spelling;
}

TEST(FieldNames, AreSpelledAsOtherProgramsKnowThem) {
    EXPECT_STREQ(kFieldRefs, "refs");
    EXPECT_STREQ(kFieldThread, "Thread");
    EXPECT_STREQ(kFieldImage, "Image");
    EXPECT_STREQ(kFieldDelta, "Delta");
    EXPECT_STREQ(kFieldDisplayOption, "DispOpt");
    EXPECT_STREQ(kFieldSender, "Sender");
    EXPECT_STREQ(kFieldSharedApp, "IAP:SrcApp");
    EXPECT_STREQ(kFieldSharedItem, "IAP:SrcIAPItem");
    EXPECT_STREQ(kFieldSource, "source");
    EXPECT_STREQ(kFieldLanguageForwarded, "LFSendFlag");
}

}  // namespace
