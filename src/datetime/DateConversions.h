#pragma once
// Dates between the platform's values and boost::posix_time::ptime (UTC).
//
// The platform's values are local times: a VARIANT date counts days from
// 1899-12-30 00:00 local time, a TIMESTAMP_STRUCT names a local calendar
// time. They become UTC with the offset of the local time zone (TZ) at the
// same clock time taken as UTC: t - offset(t). Close to a daylight saving
// change that can be an hour off; that is accepted. The offset comes from
// the C library (localtime_r), which knows zones before 1970 too.
//
// What cannot be represented gives not_a_date_time.

#include <boost/date_time/posix_time/posix_time_types.hpp>

#include "platform/OleAutomation.h"
#include "platform/SqlTypes.h"
#include "platform/WinTypes.h"

namespace VxTimeUtl {

// VT_DATE, or VT_DATE | VT_BYREF through its pointer; any other type, a null
// pointer, a day number outside -350000 ... 2.9e6, NaN and the infinities
// give not_a_date_time. The whole days are taken towards zero and the
// fraction is added as it is, also for negative numbers (-1.5 is
// 1899-12-29 12:00), in whole milliseconds.
boost::posix_time::ptime ToDateTime(VARIANT const & value);

// The fraction is in nanoseconds (kept to microseconds). Throws
// boost::gregorian::bad_day_of_month for day 0 or above 31 (and for a day
// the month does not have), bad_year outside 1400 ... 10000, bad_month for
// a month outside 1 ... 12. A time of day beyond 23:59:59 runs into the next
// day.
boost::posix_time::ptime ToDateTime(TIMESTAMP_STRUCT const & value);

// 100-nanosecond ticks since 1601-01-01 00:00 UTC. A special time, and a time
// before 1601 (which the unsigned ticks cannot hold), give zero.
FILETIME ToFileTime(boost::posix_time::ptime const & time);

// `local` moved to UTC as described above; a special time stays as it is,
// and one the C library cannot place gives not_a_date_time.
boost::posix_time::ptime LocalToUtc(boost::posix_time::ptime const & local);

}  // namespace VxTimeUtl
