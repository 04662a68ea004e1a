#pragma once

#include <rapidcheck.h>

#include "qvToolkit/outcome/outcome.h"
#include "qvToolkit/outcome/request.h"

/// Random values of every kind that their contracts allow, names of any bytes among them, and whether two of
/// them are the same, member for member.
namespace qvToolkit {

rc::Gen<Outcome> anyOutcome();
rc::Gen<Request> anyRequest();
rc::Gen<RunFacts> anyRunFacts();

bool isSame(Outcome const& a, Outcome const& b);
bool isSame(Request const& a, Request const& b);
bool isSame(RunFacts const& a, RunFacts const& b);

}  // namespace qvToolkit
