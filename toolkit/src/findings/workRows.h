#pragma once

#include <array>

#include "qvToolkit/findings/catalogue.h"

namespace qvToolkit {

/// The rows of what is found when documents are moved and written, and of what ends the work.
constexpr auto WorkRows = std::to_array<CatalogueRow>({
    {FindingCode::EncodingLoss, "encoding.loss", FindingClass::Lost, Severity::Error, OptionKey::None,
     "The stream version cannot hold it",
     "What is named came with a later version of the object stream, or has no record at all, and is not "
     "written.",
     "Write a later version if its readers allow it."},
    {FindingCode::EncodingOrder, "encoding.order", FindingClass::Look, Severity::Info, OptionKey::None,
     "The order of annotations changes",
     "An object stream lists the texts of a view before its rasters, so that images may cover texts that "
     "they did not.",
     "Nothing, unless texts and images lie on each other."},
    {FindingCode::TransformSizeKept, "transform.size-kept", FindingClass::Done, Severity::Info,
     OptionKey::None, "Sizes are not scaled",
     "Scaling moves places; texts, images, frames and heads keep their size, and anchored sub-annotations "
     "their place at their parents.",
     "Nothing."},
    {FindingCode::TransformPlaneKept, "transform.plane-kept", FindingClass::Lost, Severity::Error,
     OptionKey::None, "The plane of a view was not moved",
     "One of its numbers is not finite, so that its new place is not known; it stays as it is.",
     "Correct the plane and move the document again."},
    {FindingCode::TransformOverflow, "transform.overflow", FindingClass::Output, Severity::Error,
     OptionKey::None, "A moved coordinate would be too large",
     "Coordinates are of single precision, which ends at 3.4e38; the document is not moved.",
     "Move it less far or scale it less."},
    {FindingCode::LimitMemory, "limit.memory", FindingClass::Limit, Severity::Error, OptionKey::MaxMemory,
     "The memory was used up",
     "The work needs more memory than the limit allows or the system has; its results are not written.",
     "Raise the limit if the document can be trusted and the machine has the memory."},
    {FindingCode::LimitFailedReads, "limit.failed-reads", FindingClass::Limit, Severity::Error,
     OptionKey::MaxFailedReads, "Too many reads behind the end of the data",
     "The document announces more entries than it has bytes for. Each missing one is read as nothing, which "
     "has to end.",
     "Fetch the file again: it is cut short or damaged."},
    {FindingCode::LimitStack, "limit.stack", FindingClass::Limit, Severity::Error, OptionKey::MaxStack,
     "Nested too deep to be read",
     "Each level of records takes stack while it is read, and there is only so much of it.",
     "Raise the limit if the document can be trusted."},
    {FindingCode::LimitTime, "limit.time", FindingClass::Limit, Severity::Error, OptionKey::MaxTime,
     "The work takes too long",
     "It did not end within its time, of the processor or by the clock; nothing of it is written.",
     "Raise the limit, or see what in the document takes the time."},
    {FindingCode::LimitDepth, "limit.depth", FindingClass::Limit, Severity::Error, OptionKey::MaxDepth,
     "Sub-annotations are nested too deep", "There are more levels than may be migrated or written.",
     "Raise the limit if the document can be trusted."},
    {FindingCode::LimitViews, "limit.views", FindingClass::Limit, Severity::Error, OptionKey::MaxViews,
     "The document has too many views", "Each view makes a file of its own; nothing is migrated.",
     "Raise the limit if that many files are wanted."},
    {FindingCode::LimitNodes, "limit.nodes", FindingClass::Limit, Severity::Error, OptionKey::MaxNodes,
     "A view has too many annotations",
     "A few bytes can stand for very many annotations, since sub-annotations may be shared.",
     "Raise the limit if the document can be trusted."},
    {FindingCode::LimitOutput, "limit.output", FindingClass::Limit, Severity::Error, OptionKey::MaxOutput,
     "The results are larger than they may be",
     "One result or all of them together would grow over the limit; none of the document is written.",
     "Raise the limit if there is room for them."},
    {FindingCode::LimitRaster, "limit.raster", FindingClass::Limit, Severity::Error, OptionKey::MaxRaster,
     "An image file is too large", "It holds more bytes than an image may have and is not read.",
     "Raise the limit, or make the image smaller."},
    {FindingCode::WorkerCrashed, "worker.crashed", FindingClass::Limit, Severity::Error, OptionKey::None,
     "The process that worked on the input crashed",
     "Each input is worked on by a process of its own, so that others do not suffer; nothing of this one is "
     "written.",
     "Report it, with the document if you may."},
    {FindingCode::WorkerKilled, "worker.killed", FindingClass::Limit, Severity::Error, OptionKey::None,
     "The process that worked on the input was killed",
     "Somebody else ended it: the system for want of memory, or an operator; or it could not be started.",
     "Try again with more memory or fewer things at once."},
    {FindingCode::WorkerGarbage, "worker.garbage", FindingClass::Limit, Severity::Error, OptionKey::None,
     "The process that worked on the input left no proper result",
     "It ended without saying how; nothing of it is shown.", "Report it, with the document if you may."},
    {FindingCode::OutputExists, "output.exists", FindingClass::Output, Severity::Error, OptionKey::Force,
     "A result exists already",
     "Results replace no file unless they are told to; nothing of the document is written.",
     "Name another folder, or allow results to be replaced."},
    {FindingCode::OutputFailed, "output.failed", FindingClass::Output, Severity::Error, OptionKey::None,
     "A result cannot be written",
     "The system refused it, a program that makes it is not there or failed, or it would replace an input; "
     "nothing of the document is written.",
     "See what the line names: rights, room on the disk, a package to install, another folder."},
});

}  // namespace qvToolkit
