/* mirval.h - public interface of the plotting library libmirval. */
#ifndef MIRVAL_H
#define MIRVAL_H

#ifdef __cplusplus
extern "C" {
#endif

/* Helpers shared with the calling program. */
void mirlog(const char *name);
int getlev(void);
void upstr(char *text);
void qqscpy(char *dst, const char *src, int max);
void qqscat(char *dst, const char *src, int max);
int trmlen(const char *text);

#ifdef __cplusplus
}
#endif

#endif
