#include "viewer/MessageBand.h"

TMessageBand::TMessageBand() = default;

TMessageBand::~TMessageBand() = default;

void TMessageBand::Show(const TLoadProblem& problem, float width) {
    fProblem = problem;
    fText = std::make_unique<TComment>();
    Renew(width);
}

void TMessageBand::Clear() {
    fText.reset();
}

void TMessageBand::Renew(float width) {
    if (!fText)
        return;
    fText->Clear();
    fText->Resize(width);
    fText->SetFont();
    fText->SetProgressMessage(problem_text(fProblem));
}
