#pragma once

// Everything for interchange pairs.

#include <pelor/mif/column_clause.h>
#include <pelor/mif/coord_sys_clause.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/reader.h>
#include <pelor/mif/style_clauses.h>
#include <pelor/mif/style_size.h>
#include <pelor/mif/writer.h>
