#version 440

// Each pixel's colour, as the premultiplied bytes it was given (normalised, no sRGB decoding), is multiplied
// as a row vector: out_j = sum over k of in_k * M[4k + j]. The fourth row is therefore an offset weighted by
// alpha, so the luminosity matrix brightens. Writing to the 8-bit texture saturates each channel to [0, 1].
layout(local_size_x = 8, local_size_y = 8) in;

// Sampled rather than loaded as an image: typed loads of RGBA8 images are optional on Direct3D 11.
layout(binding = 0) uniform sampler2D inputTexture;
layout(binding = 1, rgba8) uniform writeonly image2D outputTexture;
// The 16 floats row by row; a vec4 array keeps them tightly packed under std140.
layout(std140, binding = 2) uniform ColorMatrix
{
    vec4 rows[4];
};

void main()
{
    ivec2 position = ivec2(gl_GlobalInvocationID.xy);
    // The grid is rounded up to whole 8×8 groups; the threads beyond the picture write nothing.
    if (any(greaterThanEqual(position, textureSize(inputTexture, 0))))
        return;
    vec4 c = texelFetch(inputTexture, position, 0);
    imageStore(outputTexture, position, c.r * rows[0] + c.g * rows[1] + c.b * rows[2] + c.a * rows[3]);
}
