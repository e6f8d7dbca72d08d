#include "wardrobe/hands.h"

namespace marlowick {

using F = WardrobeFields;

// Formal hands take the code of open ones.
const std::array<HandPair, 4> kHandPairs = {{
    {HandPose::Open,
     {18, "LO", &F::txtHandOpenLeft, "picHandOpenLeft", "cmdLeftOpenHand"},
     {19, "RO", &F::txtHandOpenRight, "picHandOpenRight", "cmdRightOpenHand"},
     "cmdCopyOpenLeft",
     "cmdDefOpenHands",
     "Restore open hands to the default?",
     "huao",
     HandPose::Open},
    {HandPose::Closed,
     {22, "LC", &F::txtHandClosedLeft, "picHandClosedLeft", "cmdleftClosedHand"},
     {23, "RC", &F::txtHandClosedRight, "picHandClosedRight", "cmdRightClosedHand"},
     "cmdCopyLeftClosed",
     "cmdDefClosedHands",
     "Restore closed hands to the default?",
     "huac",
     HandPose::Point},
    {HandPose::Point,
     {20, "LP", &F::txtHandPointLeft, "picHandPointLeft", "cmdLeftPointHand"},
     {21, "RP", &F::txtHandPointRight, "picHandPointRight", "cmdRightPointHand"},
     "cmdCopyPointLeft",
     "cmdDefPointHands",
     "Restore point hands to the default?",
     "huap",
     HandPose::Closed},
    {HandPose::Formal,
     {row::kFormalHandLeft, "LO", &F::txtHandFormalLeft, "picHandFormalLeft", "cmdLeftFormalHand"},
     {row::kFormalHandRight, "RO", &F::txtHandFormalRight, "picHandFormalRight",
      "cmdRightFormalHand"},
     "cmdCopyFormalLeft",
     "cmdDefFormalHands",
     "Restore formal hands to the default?",
     "",
     HandPose::Formal},
}};

const HandPair& handPair(HandPose pose) {
    return kHandPairs.at(static_cast<std::size_t>(pose));
}

}  // namespace marlowick
