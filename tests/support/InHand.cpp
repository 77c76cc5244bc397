#include "support/InHand.h"

namespace velna {
namespace {

Project theProject;
Solids theSolids;

}  // namespace
}  // namespace velna

#include "support/InHandParts.h"
