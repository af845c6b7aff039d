#pragma once

/// A yes-or-no answer of the controller. Only the exact words count.
enum class Reply { Failed, Yes, No, Other };

/// What the controller is doing.
enum class Activity { Failed, None, Measuring, Calibrating, Error, Other };
