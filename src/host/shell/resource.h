// Numbers that the resource script and the program share. 1 and 2 stay free: the dialog manager sends them as commands
// for Enter and Esc.
#pragma once

#define RESOURCE_MAIN 100
#define RESOURCE_ABOUT 101
#define RESOURCE_LOGIN 102
#define RESOURCE_PASSWORDS 103
#define RESOURCE_GO_TO 104
#define RESOURCE_CONNECTION 105
#define RESOURCE_FAULTS 106
#define RESOURCE_PRINTING 107
#define RESOURCE_PREVIEW 108
#define RESOURCE_PAGE_SETUP 109
#define RESOURCE_BACKUPS 110

#define CHILD_STATUS_BAR 400
#define CHILD_PROGRESS 401
#define ABOUT_VERSION 410
// The sentence beside the fields of a dialog.
#define DIALOG_NOTE 411
#define LOGIN_WHY 412
#define LOGIN_LEVEL 413
#define LOGIN_PASSWORD 414
#define PASSWORD_LEVEL 415
#define PASSWORD_NEW 416
#define PASSWORD_AGAIN 417
#define CHANNEL_NUMBER 418
#define CONNECTION_WAY 419
#define CONNECTION_PLACE 420
#define FAULTS_PLAN 421
#define PREVIEW_PRINT 422
#define PREVIEW_SETUP 423
#define PREVIEW_PREVIOUS 424
#define PREVIEW_NUMBER 425
#define PREVIEW_NEXT 426
#define PREVIEW_ZOOM 427
#define PREVIEW_PAGE 428
#define PAGE_SHEET 429
#define PAGE_PORTRAIT 430
#define PAGE_LANDSCAPE 431
#define PAGE_LEFT 432
#define PAGE_TOP 433
#define PAGE_RIGHT 434
#define PAGE_BOTTOM 435
// Also in the system's dialog, whose own numbers begin above a thousand.
#define PAGE_ONLY_IN_USE 436
#define BACKUP_LIST 437
#define BACKUP_LOAD 438
#define CONNECTION_TRACE 439
