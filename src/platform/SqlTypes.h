#pragma once
// The ODBC date-time value, with the layout of the ODBC headers: a calendar
// date, a time of day and a fraction of the second in nanoseconds.

#include <cstdint>

using SQLSMALLINT = int16_t;
using SQLUSMALLINT = uint16_t;
using SQLUINTEGER = uint32_t;

struct TIMESTAMP_STRUCT {
  SQLSMALLINT year;
  SQLUSMALLINT month;
  SQLUSMALLINT day;
  SQLUSMALLINT hour;
  SQLUSMALLINT minute;
  SQLUSMALLINT second;
  SQLUINTEGER fraction;
};
using SQL_TIMESTAMP_STRUCT = TIMESTAMP_STRUCT;

static_assert(sizeof(TIMESTAMP_STRUCT) == 16, "TIMESTAMP_STRUCT is 16 bytes");
