/* What the kernel's mode setting takes, as its interface has it since Linux 3.9: all that is needed
   to show memory on a screen, so that neither libdrm nor its headers are. */
#ifndef EXAMPLES_KMS_H
#define EXAMPLES_KMS_H

#include <stdint.h>
#include <sys/ioctl.h>

typedef struct kms_mode {
    uint32_t clock;
    uint16_t width, h_start, h_end, h_total, h_skew;
    uint16_t height, v_start, v_end, v_total, v_scan;
    uint32_t refresh, flags, type;
    char name[32];
} kms_mode;

typedef struct kms_resources {
    uint64_t pictures, crtcs, connectors, encoders; /* addresses of lists of numbers */
    uint32_t picture_count, crtc_count, connector_count, encoder_count;
    uint32_t least_width, most_width, least_height, most_height;
} kms_resources;

typedef struct kms_crtc {
    uint64_t connectors;
    uint32_t connector_count, id, picture, x, y, gamma, has_mode;
    kms_mode mode;
} kms_crtc;

typedef struct kms_encoder {
    uint32_t id, type, crtc, possible_crtcs, possible_clones;
} kms_encoder;

typedef struct kms_connector {
    uint64_t encoders, modes, properties, values;
    uint32_t mode_count, property_count, encoder_count;
    uint32_t encoder, id, type, number;
    uint32_t connected, mm_width, mm_height, order, unused; /* connected: 1 */
} kms_connector;

typedef struct kms_picture {
    uint32_t id, width, height, stride, bits, depth, buffer;
} kms_picture;

typedef struct kms_part {
    uint16_t left, top, right, bottom;
} kms_part;

typedef struct kms_dirty {
    uint32_t picture, flags, color, part_count;
    uint64_t parts;
} kms_dirty;

typedef struct kms_buffer {
    uint32_t height, width, bits, flags, id, stride;
    uint64_t size;
} kms_buffer;

typedef struct kms_map {
    uint32_t buffer, unused;
    uint64_t offset;
} kms_map;

#define KMS_RESOURCES _IOWR('d', 0xA0, kms_resources)
#define KMS_GET_CRTC _IOWR('d', 0xA1, kms_crtc)
#define KMS_SET_CRTC _IOWR('d', 0xA2, kms_crtc)
#define KMS_ENCODER _IOWR('d', 0xA6, kms_encoder)
#define KMS_CONNECTOR _IOWR('d', 0xA7, kms_connector)
#define KMS_ADD_PICTURE _IOWR('d', 0xAE, kms_picture)
#define KMS_REMOVE_PICTURE _IOWR('d', 0xAF, uint32_t)
#define KMS_DIRTY _IOWR('d', 0xB1, kms_dirty)
#define KMS_CREATE _IOWR('d', 0xB2, kms_buffer)
#define KMS_MAP _IOWR('d', 0xB3, kms_map)
#define KMS_DESTROY _IOWR('d', 0xB4, uint32_t)

#endif
