// Procedures live in files of their own, read when they are called. CALL creates the actual
// parameters at the next level, pushes the procedure file and raises the level; the file's
// SUBROUTINE or FUNCTION statement binds them to their formal names; END closes the level.
#include "core/procedure.h"

#include "binding/call.h"
#include "core/blocks.h"
#include "core/error.h"
#include "core/reader.h"
#include "core/statement.h"
#include "lang/lexer.h"
#include "lang/parser.h"
#include "mirval.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <vector>

ProcTable usrproc;
double xcbret = 0;
static int pending_result = -1;

void set_result_var(int index) { pending_result = index; }

int proc_argcnt() { return g_nlevel > 0 ? usrproc.nparam[g_nlevel - 1] : 0; }
int proc_keycnt() { return g_nlevel > 0 ? usrproc.nkey[g_nlevel - 1] : 0; }

// Binds one actual parameter text to a new record at `level`; false after an error.
static bool make_param(const char *piece, int level, int k, const char *key) {
  init_lex(piece);
  int tok = lexan();
  if (tok == TK_END) {
    error("Syntax error - Expected variable");
    return false;
  }
  int index = find_freevar();
  if (index < 0) return false;
  VarRecord &v = varlist[index];
  if (k == 1) usrproc.first = index;
  usrproc.last = index;
  int target = tok == TK_ID && lexan() == TK_END ? search_var(vlex.name) : -1;
  if (target >= 0) {
    v.type = T_REF;
    v.count = 1;
    v.ndim = 1;
    v.value.ref = target;
  } else {
    init_lex(piece);
    if (parse(0) && g_nstack > 0) {
      free_stack(1);
      v.type = T_INT;  // holds the record while the value is moved in
      if (insert_var(&stacklist[0], index) < 0) {
        free_stack(0);
        v.type = T_FREE;
      }
      g_nstack = 0;
    } else {
      free_stack(0);
    }
  }
  v.level = static_cast<int8_t>(level);
  char name[NAMELEN + 2];  // "!" and a keyword of at most 14, or "$" and the position
  name[0] = *key ? '!' : '$';
  if (*key) qqscpy(name + 1, key, NAMELEN - 1);
  else *std::to_chars(name + 1, name + NAMELEN, k).ptr = '\0';
  set_name(&v, name);
  return true;
}

// Checks the keyword part "KEY" of a parameter "KEY=expression"; the keyword is cut to 14.
static bool keyword_name(const char *text, char *key) {
  init_lex(text);
  if (lexan() != TK_ID) {
    error("Syntax error - Expected indentifier as keyword");
    return false;
  }
  qqscpy(key, vlex.name, NAMELEN - 1);
  if (lexan() != TK_END) {
    char_error("Syntax error in keyword", text);
    return false;
  }
  return true;
}

int call_zkl(int kind, const char *name) {
  char pname[NAMELEN + 1];
  const char *text;
  if (kind == 1) {
    if (lexan() != TK_ID) {
      error("Routine name expected after CALL");
      return 1;
    }
    std::memcpy(pname, vlex.name, sizeof pname);
    text = cpstmt;
  } else {
    qqscpy(pname, name, NAMELEN);
    const char *eq = std::strchr(cpstmt, '=');
    text = eq ? eq + 1 : "";
  }
  int result = pending_result;
  pending_result = -1;
  if (g_nlevel >= MAXLEVEL) {
    error("Too many nested procedure calls (at most 8 levels)");
    return 1;
  }
  char file[20];
  qqscpy(file, pname, 15);
  lowstr(file);
  qqscat(file, ".zkl", 19);
  // The statement text may be a stored one that the parameter parsing must not disturb.
  char copy[STMTLEN + 1], piece[STMTLEN + 1];
  qqscpy(copy, text, STMTLEN);
  char keyname[NAMELEN + 1], key[NAMELEN + 1];
  int level = g_nlevel + 1, n = 0, nkey = 0;
  usrproc.first = usrproc.last = -1;
  for (int k = 1; get_parexpr(copy, k == 1, piece, keyname); ++k) {
    key[0] = '\0';
    if (*keyname && !keyword_name(keyname, key)) {
      free_level(level);  // the parameters of a call that could not be made
      return 1;
    }
    if (!make_param(piece, level, k, key)) {
      free_level(level);  // the parameters of a call that could not be made
      return 1;
    }
    ++n;
    if (*key) ++nkey;
  }
  if (nstptr == nstrec && push_procedure(file) != 0) {
    free_level(level);  // the parameters of a call that could not be made
    return 1;
  }
  std::memcpy(usrproc.name, pname, sizeof pname);
  enter_level(kind == 1 ? 0 : 1, n, nkey, result);
  return 0;
}

void enter_level(int kind, int nparam, int nkey, int resvar) {
  int l = g_nlevel;
  usrproc.kind[l] = static_cast<int8_t>(kind);
  usrproc.nparam[l] = nparam;
  usrproc.nkey[l] = nkey;
  usrproc.resvar[l] = resvar;
  usrproc.bufpos[l] = nstrec;
  usrproc.returned[l] = false;
  usrproc.blocks[l][0] = iflev;
  usrproc.blocks[l][1] = ilplev;
  usrproc.blocks[l][2] = iswlev;
  g_nlevel = l + 1;
}

// Ends the level after an error in the parameter binding.
static int fail_level() {
  end_zkl();
  return 1;
}

// Finds the actual parameter for a formal: "!KEY" for a keyword formal, else the first "$n".
static int find_actual(const char *key) {
  if (usrproc.first < 0) return -1;
  for (int i = usrproc.first; i <= usrproc.last && i < MAXVAR; ++i) {
    const VarRecord &v = varlist[i];
    if (v.type == T_FREE || v.level != g_nlevel) continue;
    if (*key ? v.name[0] == '!' && std::strcmp(v.name + 1, key) == 0 : v.name[0] == '$') return i;
  }
  return -1;
}

int subr_zkl(int kind) {
  const char *what = kind == 1 ? "SUBROUTINE" : "FUNCTION";
  if (lexan() != TK_ID) {
    char msg[48];
    std::snprintf(msg, sizeof msg, "Identifier expected after %s", what);
    error(msg);
    return fail_level();
  }
  if (std::strcmp(vlex.name, usrproc.name) != 0) {
    char_error("Expected routine name", usrproc.name);
    return fail_level();
  }
  int tok = lexan();
  if (tok == '(') tok = lexan();
  for (int pos = 1; tok != TK_END && tok != ')'; ++pos) {
    char type[NAMELEN + 1] = "", key[NAMELEN + 1] = "", name[NAMELEN + 1] = "";
    bool isarray = false;
    if (tok == TK_ID) {
      std::memcpy(name, vlex.name, sizeof name);
      tok = lexan();
      if (tok == '[') {
        isarray = true;
        if (lexan() == ']') tok = lexan();
      }
      if (tok == ':') {
        std::memcpy(type, name, sizeof type);
        name[0] = '\0';
        tok = lexan();
        if (tok == TK_ID) {
          std::memcpy(name, vlex.name, sizeof name);
          tok = lexan();
        }
      }
    }
    if (tok == '=') {
      if (!*name) {
        error("Syntax error - Expected keyword");
        return fail_level();
      }
      qqscpy(key, name, NAMELEN - 1);
      name[0] = '\0';
      tok = lexan();
      if (tok == TK_ID) {
        std::memcpy(name, vlex.name, sizeof name);
        tok = lexan();
      }
    }
    if (!*name) {
      error("Syntax error - Expected variable");
      return fail_level();
    }
    int index = find_actual(key);
    if (index >= 0) {
      set_name(&varlist[index], name);
      if (*type) {
        int code = get_idtype(type, isarray);
        if (code < 0) return fail_level();
        const VarRecord &v = varlist[index].type == T_REF ? varlist[varlist[index].value.ref] : varlist[index];
        if (v.type != code) {
          char msg[80];
          std::snprintf(msg, sizeof msg, "Mismatch of parameter %d in CALL to %s", pos, usrproc.name);
          error(msg);
          return fail_level();
        }
      }
    }
    if (tok == ',') tok = lexan();
  }
  for (int i = usrproc.first; usrproc.first >= 0 && i <= usrproc.last && i < MAXVAR; ++i) {
    const VarRecord &v = varlist[i];
    if (v.type == T_FREE || v.level != g_nlevel) continue;
    char msg[80];
    if (v.name[0] == '$') {
      std::snprintf(msg, sizeof msg, "Too many parameters in CALL to %s", usrproc.name);
      error(msg);
      return fail_level();
    }
    if (v.name[0] == '!') {
      std::snprintf(msg, sizeof msg, "Undefined keyword %s", v.name + 1);
      error(msg);
      return fail_level();
    }
  }
  return 0;
}

int return_zkl() {
  if (g_nlevel == 0) {
    error("RETURN statement outside of subroutine or function");
    return 1;
  }
  int l = g_nlevel - 1;
  parse(0);
  switch (usrproc.kind[l]) {
    case 1:
      if (g_nstack == 0) {
        error("RETURN statement must return a value");
        break;
      }
      usrproc.returned[l] = true;
      if (usrproc.resvar[l] >= 0) {
        free_stack(1);
        release_storage(&varlist[usrproc.resvar[l]]);
        if (insert_var(&stacklist[0], usrproc.resvar[l]) < 0) free_stack(0);
        g_nstack = 0;
      }
      break;
    case 3:
      if (g_nstack > 0 && (stacklist[0].type == T_INT || stacklist[0].type == T_DOUBLE))
        xcbret = stacklist[0].type == T_INT ? stacklist[0].value.i : stacklist[0].value.d;
      else
        error("RETURN statement must return a floatingpoint value");
      break;
    default:
      if (g_nstack > 0) error("RETURN statement cannot return a value");
      break;
  }
  free_stack(0);
  irtjmp = 1;
  iexec = calc_exec();
  return 0;
}

static bool labels_below(int level) {
  for (int l = 0; l < level && l < 8; ++l)
    if (ilabop[l]) return true;
  return false;
}

int end_zkl() {
  if (g_nlevel == 0) return 0;
  int level = g_nlevel, l = level - 1;
  bool replay = nstptr < nstrec;
  int kind = usrproc.kind[l];
  if (kind == 1 && !usrproc.returned[l]) error("Functions must have a RETURN statement");
  if (kind == 2 || kind == 3) inext = 0;
  close_blocks(usrproc.blocks[l][0], usrproc.blocks[l][1], usrproc.blocks[l][2]);
  free_level(level);
  bool release = kind == 2 || kind == 3;
  if (level < 8 && ilabop[level]) {
    free_lab(level);
    ilabop[level] = 0;
    release = !(labels_below(level) && (kind == 0 || kind == 1));
    if (!labels_below(level) && ilplev == 0) istopt = 0;
  }
  if (release && ilplev == 0 && usrproc.bufpos[l] < nstrec) {
    release_stmts(usrproc.bufpos[l]);
    if (replay) nstptr = nstrec - 1;
  }
  if (!replay && nfpin > 1) {
    std::fclose(fpin[--nfpin]);
    fp = fpin[nfpin - 1];
    nrec = nrecnr[nfpin - 1];
    inclop = included[nfpin - 1];
    if (nfpin == 1) g_intact = iactive;
  }
  g_nlevel = level - 1;
  return 0;
}

int extern_zkl() {
  if (g_nlevel == 0) {
    error("EXTERN statement must be used in a subroutine of function");
    return 1;
  }
  for (int tok = lexan(); tok != TK_END;) {
    if (tok != TK_ID) {
      error("Syntax error - Expected indentifier");
      return 1;
    }
    char name[NAMELEN + 1];
    std::memcpy(name, vlex.name, sizeof name);
    int level = g_nlevel;
    g_nlevel = 0;
    int global = search_var(name);
    g_nlevel = level;
    if (global >= 0) {
      int index = find_freevar();
      if (index < 0) return 1;
      VarRecord &v = varlist[index];
      set_name(&v, name);
      v.level = static_cast<int8_t>(level);
      v.type = T_REF;
      v.count = 1;
      v.ndim = 1;
      v.value.ref = global;
    } else {
      char_error("Cannot find extern variable", name);
    }
    tok = lexan();
    if (tok == ',') {
      tok = lexan();
    } else if (tok != TK_END) {
      error("Syntax error - Expected end of statement");
      return 1;
    }
  }
  return 0;
}

int push_procedure(const char *file) {
  inclop = 0;  // a procedure file ends with its END, not as an included file
  return inczkl(file);
}

int inczkl(const char *name) {
  if (nfpin >= MAXFILES) {
    error("Too many opened files");
    return 1;
  }
  char opened[PATHLEN + 1];
  FILE *f = search_file(name, opened);
  if (!f) return 1;
  char record[RECLEN + 1];
  if (!std::fgets(record, sizeof record, f) || !check_header(record)) {
    std::printf(" >>>> Not allowed file format in %s\n", name);
    std::fclose(f);
    return 1;
  }
  nrecnr[nfpin - 1] = nrec;
  nrec = 0;
  fp = f;
  fpin[nfpin] = f;
  included[nfpin] = static_cast<unsigned char>(inclop);
  qqscpy(cinp[nfpin], opened, PATHLEN);
  ++nfpin;
  return 0;
}

int exec_include() {
  static bool first = true;
  char name[PATHLEN + 1];
  if (inclfl && first) {
    first = false;
    qqscpy(name, cincfl, PATHLEN);
  } else {
    first = false;
    if (!parse_text_param("Missing parameter in INCLUDE statement", "Parameter of INCLUDE must be a string"))
      return 1;
    if (g_nstack > 1) error("Too many parameters in INCLUDE statement");
    if (ilex != TK_END) error("Expected end of statement in INCLUDE");
    qqscpy(name, stacklist[0].value.str, PATHLEN);
    free_stack(0);
  }
  add_extension(name, PATHLEN, ".zkl");
  inclop = 1;
  inczkl(name);
  return 0;
}

int exec_init(const char *name, int) {
  std::vector<double> items;
  bool isfloat = false;
  int tok = lexan();
  for (;;) {
    double sign = 1;
    if (tok == TK_UMINUS) {
      sign = -1;
      tok = lexan();
    }
    if (tok != TK_INT && tok != TK_FLOAT) {
      error("Integer or floatingpoint number expected");
      return -1;
    }
    isfloat = isfloat || tok == TK_FLOAT;
    items.push_back(sign * (tok == TK_INT ? vlex.value.i : vlex.value.d));
    tok = lexan();
    if (tok == '}') break;
    if (tok != ',') {
      error("'}' is missing");
      return -1;
    }
    tok = lexan();
  }
  if (lexan() != TK_END) {
    error("End of statement expected");
    return -1;
  }
  int n = static_cast<int>(items.size());
  VarRecord rec;
  std::memset(&rec, 0, sizeof rec);
  set_name(&rec, name);
  rec.type = isfloat ? T_FLOATR : T_INTR;
  rec.count = n;
  rec.ndim = 1;
  rec.value.p = my_calloc(n, 4);
  if (!rec.value.p) return -1;
  for (int i = 0; i < n; ++i) {
    if (isfloat) static_cast<float *>(rec.value.p)[i] = static_cast<float>(items[i]);
    else static_cast<int32_t *>(rec.value.p)[i] = static_cast<int32_t>(items[i]);
  }
  int index = insert_var(&rec, -1);
  if (index < 0) release_storage(&rec);
  return index;
}

// ---------------------------------------------------------------- replays

constexpr size_t MAXFORMS = 32;  // parameters of a call or formals taken the short way

std::unique_ptr<CallForm> compile_call(const char *fname, const char *args) {
  auto c = std::make_unique<CallForm>();
  qqscpy(c->fname, fname, NAMELEN);
  char copy[STMTLEN + 1], piece[STMTLEN + 1], keyname[NAMELEN + 1];
  qqscpy(copy, args, STMTLEN);
  for (int k = 1; get_parexpr(copy, k == 1, piece, keyname); ++k) {
    if (*keyname) return nullptr;
    std::vector<Tok> t = quiet_tokens(piece, 0, -1, 2);
    if (t[0].tok == TK_END || t[0].tok == TK_ERR) return nullptr;
    CallForm::Param p{make_slot(t[0].name), nullptr};
    if (t[0].tok != TK_ID || t[1].tok != TK_END) {
      p.value.reset(compile_expr(piece, 0, -1));
      if (!p.value || p.value->nvalues != 1) return nullptr;
    }
    c->params.push_back(std::move(p));
  }
  return c->params.size() <= MAXFORMS ? std::move(c) : nullptr;
}

// Whether compiled code reads the name (whose record a call is about to replace).
static bool reads(const ExprCode &code, const char *name) {
  for (const NameSlot &s : code.names)
    if (std::strcmp(s.name, name) == 0) return true;
  return false;
}

bool run_call(CallForm &c, NameSlot &target) {
  int n = static_cast<int>(c.params.size());
  if (g_nlevel >= MAXLEVEL || g_varhigh + 1 + n > MAXVAR) return false;
  // Everything that could give a message is settled before the first record is touched.
  Scalar values[MAXFORMS];
  int refs[MAXFORMS];
  for (int k = 0; k < n; ++k) {
    refs[k] = -1;
    CallForm::Param &p = c.params[k];
    Scalar out[MAXSTACK];
    if (p.value ? reads(*p.value, target.name) || !eval_expr(*p.value, out)
                : std::strcmp(p.var.name, target.name) == 0 || (refs[k] = slot_var(p.var)) < 0)
      return false;
    if (p.value) values[k] = out[0];
  }
  int index = slot_var(target);
  VarRecord old{};
  if (index >= 0) {
    old = varlist[index];
    varlist[index].type = T_FREE;
  }
  int result = find_freevar();
  VarRecord &r = varlist[result];
  set_name(&r, target.name);
  r.level = static_cast<int8_t>(g_nlevel);
  r.ndim = 1;
  release_storage(&old);
  r.type = T_INT;
  r.count = 1;
  r.value.i = 0;
  int level = g_nlevel + 1;
  usrproc.first = usrproc.last = -1;
  for (int k = 0; k < n; ++k) {
    int i = find_freevar();
    VarRecord &v = varlist[i];
    if (k == 0) usrproc.first = i;
    usrproc.last = i;
    v.count = 1;
    v.ndim = 1;
    if (refs[k] >= 0) {
      v.type = T_REF;
      v.value.ref = refs[k];
    } else {
      v.type = static_cast<int8_t>(values[k].type);
      v.value = values[k].value;
    }
    v.level = static_cast<int8_t>(level);
    char name[NAMELEN + 2] = "$";
    *std::to_chars(name + 1, name + NAMELEN, k + 1).ptr = '\0';
    set_name(&v, name);
  }
  std::memcpy(usrproc.name, c.fname, sizeof usrproc.name);
  enter_level(1, n, 0, result);
  return true;
}

std::unique_ptr<HeaderForm> compile_header(const char *text) {
  std::vector<Tok> t = quiet_tokens(text, 0, -1, STMTLEN);
  size_t k = 0;
  auto next = [&] { return k + 1 < t.size() ? t[++k].tok : TK_ERR; };
  if (t[0].tok != TK_ID) return nullptr;
  auto h = std::make_unique<HeaderForm>();
  std::memcpy(h->pname, t[0].name, sizeof h->pname);
  int tok = next();
  if (tok == '(') tok = next();
  while (tok != TK_END && tok != ')') {
    if (tok != TK_ID) return nullptr;
    HeaderForm::Formal f{};
    std::memcpy(f.name, t[k].name, sizeof f.name);
    bool isarray = false;
    tok = next();
    if (tok == '[') {
      isarray = true;
      if (next() == ']') tok = next();
    }
    if (tok == ':') {
      f.type = find_idtype(f.name, isarray);
      tok = next();
      if (tok != TK_ID || f.type < 0) return nullptr;
      std::memcpy(f.name, t[k].name, sizeof f.name);
      tok = next();
    }
    if (tok == '=' || tok == TK_ERR) return nullptr;  // keywords and faults: the long way
    h->formals.push_back(f);
    if (tok == ',') tok = next();
  }
  return h->formals.size() <= MAXFORMS ? std::move(h) : nullptr;
}

// An actual parameter of the new level whose name begins with `mark`.
static bool marked(int i, char mark) {
  const VarRecord &v = varlist[i];
  return v.type != T_FREE && v.level == g_nlevel && v.name[0] == mark;
}

bool run_header(const HeaderForm &h) {
  if (std::strcmp(h.pname, usrproc.name) != 0) return false;
  int first = usrproc.first, last = usrproc.last < MAXVAR ? usrproc.last : MAXVAR - 1;
  if (first < 0) first = 0, last = -1;  // no parameters were passed
  // each formal takes the next "$" record, as find_actual finds them one after the other
  int taken[MAXFORMS], n = 0, i = first;
  for (const HeaderForm::Formal &f : h.formals) {
    while (i <= last && !marked(i, '$')) ++i;
    if (i > last) break;
    const VarRecord &v = varlist[i].type == T_REF ? varlist[varlist[i].value.ref] : varlist[i];
    if (f.type && v.type != f.type) return false;
    taken[n++] = i++;
  }
  // what no formal takes would be reported: "$" records after the last taken, any "!"
  for (int j = first; j <= last; ++j)
    if ((marked(j, '$') && (n == 0 || j > taken[n - 1])) || marked(j, '!')) return false;
  for (int k = 0; k < n; ++k) set_name(&varlist[taken[k]], h.formals[k].name);
  return true;
}

bool run_return(const Scalar &value) {
  int l = g_nlevel - 1;
  if (l < 0 || usrproc.kind[l] != 1) return false;
  usrproc.returned[l] = true;
  if (usrproc.resvar[l] >= 0) {
    VarRecord &v = varlist[usrproc.resvar[l]];
    release_storage(&v);
    v.type = static_cast<int8_t>(value.type);
    v.count = 1;
    v.ndim = 1;
    v.value = value.value;
  }
  irtjmp = 1;
  iexec = calc_exec();
  return true;
}
