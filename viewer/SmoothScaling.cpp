#include "viewer/SmoothScaling.h"

#include <app/Message.h>
#include <interface/Menu.h>
#include <interface/MenuItem.h>

#include "framework/HintedLabels.h"
#include "framework/MessageCodes.h"
#include "settings/Additions.h"

void TSmoothScaling::AddItems(BMenu* menu, const THintedLabels& labels) {
    auto* item =
        new BMenuItem(labels("Smooth Scaling", "S").c_str(), new BMessage(kMsgToggleSmoothScaling));
    item->SetTrigger(labels.Trigger("S"));
    item->SetMarked(gAdditions.fSmoothScaling);
    menu->AddItem(item);
}

bool TSmoothScaling::MessageReceived(BMessage* message) {
    if (message->what != kMsgToggleSmoothScaling)
        return false;
    gAdditions.fSmoothScaling = !gAdditions.fSmoothScaling;
    (void)gAdditions.SaveToFile();
    fHost->RedrawImage();
    return true;
}
