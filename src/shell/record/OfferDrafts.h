#pragma once

class QWidget;
struct RecordDialogContext;

/// After the start of the window: each new record that an earlier run could not store is offered, with the
/// time that its timer has counted. Taken up, it is in its dialog again; refused, it is offered once more at
/// the next start.
void OfferDrafts(QWidget* parent, const RecordDialogContext& context);
